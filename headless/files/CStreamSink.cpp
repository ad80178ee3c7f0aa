#include "headless/files/CStreamSink.h"

#include "headless/console/HeadlessError.h"

void CStreamSink::Write(std::string_view sBytes)
{
    m_Stream.write(sBytes.data(), static_cast<std::streamsize>(sBytes.size()));
    CheckStream();
}

void CStreamSink::Commit()
{
    m_Stream.flush();
    CheckStream();
}

void CStreamSink::CheckStream() const
{
    if (!m_Stream)
    {
        throw CWriteError("standard output: cannot be written");
    }
}
