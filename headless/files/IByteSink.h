#pragma once

#include <string_view>

// A file that is being written. Only Commit makes it appear: a sink that is destroyed without Commit leaves the earlier
// file unchanged. Both methods throw CWriteError naming the file.
struct IByteSink
{
    virtual void Write(std::string_view sBytes) = 0;
    virtual void Commit() = 0;
    virtual ~IByteSink() = default;
};
