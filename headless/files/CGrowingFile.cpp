#include "headless/files/CGrowingFile.h"

#include "headless/console/HeadlessError.h"
#include "headless/files/CByteReader.h"
#include "headless/files/CByteWriter.h"
#include "headless/files/COutputFile.h"
#include "headless/files/InputFile.h"
#include "headless/files/SystemFile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace
{

constexpr std::chrono::milliseconds c_KeepPeriod{500};
constexpr std::size_t c_uPieceBytes = std::size_t{64} * 1024;

} // namespace

CGrowingFile::CGrowingFile(const std::string& sPath, IByteSink* pStandardOutput)
    : m_sPath(sPath), m_pStandardOutput(pStandardOutput), m_NextKeep(CClock::now() + c_KeepPeriod)
{
    if (m_pStandardOutput == nullptr)
    {
        m_pFile = std::make_unique<COutputFile>(sPath);
    }
}

CGrowingFile::~CGrowingFile() = default;

void CGrowingFile::SavePosition(CByteWriter& writer) const
{
    writer.Write64(m_uBytes);
    writer.Write64(m_Hash.Get());
}

void CGrowingFile::Continue(CByteReader& reader)
{
    const std::uint64_t uBytes = reader.Read64();
    const std::uint64_t uHash = reader.Read64();
    if (IsDirect() || (uBytes == 0 && reader.IsGood()))
    {
        m_Hash = CFnvHash(uHash);
        m_uBytes = uBytes;
        return;
    }
    // The partial file is the newer one. An unfinished copy of the other one is shorter and fails.
    const std::string sPartial = Utf8FromPath(COutputFile::GetPartialPath(m_sPath));
    if (!reader.IsGood() || (!Copy(sPartial, uBytes, uHash) && !Copy(m_sPath, uBytes, uHash)))
    {
        throw CHeadlessError(m_sPath + ": cannot be continued: neither it nor " + sPartial +
                             " begins with what the run had written before its checkpoint");
    }
}

bool CGrowingFile::IsDirect() const
{
    return m_pFile == nullptr || m_pFile->IsDirect();
}

void CGrowingFile::Write(std::string_view sBytes)
{
    IByteSink& sink = m_pFile != nullptr ? static_cast<IByteSink&>(*m_pFile) : *m_pStandardOutput;
    sink.Write(sBytes);
    for (const char byte : sBytes)
    {
        m_Hash.AddByte(static_cast<std::uint8_t>(byte));
    }
    m_uBytes += sBytes.size();
}

void CGrowingFile::Keep(bool bOnDisk)
{
    if (m_pFile == nullptr)
    {
        m_pStandardOutput->Commit();
    }
    else if (m_uBytes > 0)
    {
        m_pFile->Keep(bOnDisk);
    }
}

void CGrowingFile::KeepNowAndThen()
{
    const CClock::time_point now = CClock::now();
    if (m_pFile != nullptr && now >= m_NextKeep)
    {
        m_pFile->Keep(false);
        m_NextKeep = now + c_KeepPeriod;
    }
}

void CGrowingFile::Commit()
{
    if (m_pFile == nullptr)
    {
        m_pStandardOutput->Commit();
        return;
    }
    // Replaces what an earlier, interrupted run has left.
    m_pFile->Keep(false);
    m_pFile->Commit();
}

// False if the file does not begin with these bytes.
bool CGrowingFile::Copy(const std::string& sFrom, std::uint64_t uBytes, std::uint64_t uHash)
{
    if (!std::filesystem::is_regular_file(PathFromUtf8(sFrom)))
    {
        return false;
    }
    m_pFile = std::make_unique<COutputFile>(m_sPath);
    m_Hash = CFnvHash();
    m_uBytes = 0;
    std::ifstream stream = OpenInputFile(sFrom);
    std::string sPiece;
    for (std::uint64_t uLeft = uBytes; uLeft > 0; uLeft -= sPiece.size())
    {
        sPiece.resize(static_cast<std::size_t>(std::min<std::uint64_t>(uLeft, c_uPieceBytes)));
        stream.read(sPiece.data(), static_cast<std::streamsize>(sPiece.size()));
        sPiece.resize(static_cast<std::size_t>(stream.gcount()));
        if (sPiece.empty())
        {
            return false;
        }
        Write(sPiece);
    }
    return m_Hash.Get() == uHash;
}
