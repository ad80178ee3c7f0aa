#include "headless/files/CByteWriter.h"

#include "headless/files/CTextSink.h"

namespace
{

void AddBytes(CFnvHash& hash, std::string_view sBytes)
{
    for (const char byte : sBytes)
    {
        hash.AddByte(static_cast<std::uint8_t>(byte));
    }
}

} // namespace

std::uint64_t ComputeFnvHash(std::string_view sBytes)
{
    CFnvHash hash;
    AddBytes(hash, sBytes);
    return hash.Get();
}

CByteWriter::CByteWriter(IByteSink& sink) : m_Sink(sink)
{
    m_sBuffer.reserve(2 * c_uPieceBytes);
}

void CByteWriter::WriteBytes(std::string_view sBytes)
{
    m_sBuffer += sBytes;
}

void CByteWriter::WriteText(std::string_view sText)
{
    Write32(static_cast<std::uint32_t>(sText.size()));
    WriteBytes(sText);
}

void CByteWriter::WriteHash()
{
    Flush();
    Write64(m_Hash.Get());
    m_Sink.Write(m_sBuffer);
}

void CByteWriter::Flush()
{
    AddBytes(m_Hash, m_sBuffer);
    m_Sink.Write(m_sBuffer);
    m_sBuffer.clear();
}

std::string MakeBytes(const std::function<void(CByteWriter&)>& write)
{
    CTextSink sink;
    CByteWriter writer(sink);
    write(writer);
    writer.Flush();
    return sink.GetText();
}
