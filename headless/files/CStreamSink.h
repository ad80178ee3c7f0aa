#pragma once

#include "headless/files/IByteSink.h"

#include <ostream>

// Standard output as a sink. Bytes are written at once; Commit only flushes.
class CStreamSink : public IByteSink
{
public:
    explicit CStreamSink(std::ostream& stream) : m_Stream(stream) {}

    void Write(std::string_view sBytes) override;
    void Commit() override;

private:
    void CheckStream() const;

    std::ostream& m_Stream;
};
