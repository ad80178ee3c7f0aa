#pragma once

#include <string_view>

// A file that is being written. What was not committed was never written: destroying the sink leaves whatever stood
// there before. Both methods throw CHeadlessError naming the file.
struct IByteSink
{
    virtual void Write(std::string_view sBytes) = 0;
    virtual void Commit() = 0;
    virtual ~IByteSink() = default;
};
