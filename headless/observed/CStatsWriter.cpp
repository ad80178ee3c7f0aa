#include "headless/observed/CStatsWriter.h"

#include "headless/console/HeadlessError.h"
#include "headless/files/COutputFile.h"
#include "headless/files/InputFile.h"
#include "headless/files/SystemFile.h"
#include "headless/observed/StatsFile.h"

#include <algorithm>
#include <filesystem>

namespace
{

constexpr std::chrono::milliseconds c_KeepPeriod{500};
constexpr std::size_t c_uPieceBytes = std::size_t{64} * 1024;

} // namespace

CStatsWriter::CStatsWriter(const std::string& sPath, IByteSink* pStandardOutput, const CStatsPosition& position)
    : m_sPath(sPath), m_pStandardOutput(pStandardOutput), m_NextKeep(CClock::now() + c_KeepPeriod)
{
    if (m_pStandardOutput == nullptr)
    {
        m_pFile = std::make_unique<COutputFile>(sPath);
    }
    if (position.bytes == 0)
    {
        WriteStatsHeader(*this);
    }
    else if (IsDirect())
    {
        m_Hash = CFnvHash(position.hash);
        m_Position = position;
    }
    // The partial file is the newer one. An unfinished copy of the other one is shorter and fails.
    else if (!CopyRows(Utf8FromPath(COutputFile::GetPartialPath(sPath)), position) && !CopyRows(sPath, position))
    {
        throw CHeadlessError(sPath + ": cannot be continued: neither it nor " +
                             Utf8FromPath(COutputFile::GetPartialPath(sPath)) +
                             " begins with the rows of the run up to iteration " + std::to_string(position.iteration));
    }
}

CStatsWriter::~CStatsWriter() = default;

bool CStatsWriter::IsDirect() const
{
    return m_pFile == nullptr || m_pFile->IsDirect();
}

void CStatsWriter::AddRow(std::uint64_t uIteration, std::uint32_t uCollisions, const CVelocityStatistics& velocities)
{
    WriteStatsRow(*this, uIteration, uCollisions, velocities);
    m_Position.iteration = uIteration;
    const CClock::time_point now = CClock::now();
    if (m_pFile != nullptr && now >= m_NextKeep)
    {
        m_pFile->Keep(false);
        m_NextKeep = now + c_KeepPeriod;
    }
}

void CStatsWriter::Keep()
{
    if (m_pFile == nullptr)
    {
        m_pStandardOutput->Commit();
    }
    else if (m_Position.iteration > 0)
    {
        m_pFile->Keep(true);
    }
}

CStatsPosition CStatsWriter::GetPosition() const
{
    return m_Position.iteration > 0 ? m_Position : CStatsPosition();
}

void CStatsWriter::Write(std::string_view sBytes)
{
    IByteSink& sink = m_pFile != nullptr ? static_cast<IByteSink&>(*m_pFile) : *m_pStandardOutput;
    sink.Write(sBytes);
    for (const char byte : sBytes)
    {
        m_Hash.AddByte(static_cast<std::uint8_t>(byte));
    }
    m_Position.bytes += sBytes.size();
    m_Position.hash = m_Hash.Get();
}

void CStatsWriter::Commit()
{
    if (m_pFile != nullptr)
    {
        // Replaces what an earlier, interrupted run has left.
        m_pFile->Keep(false);
        m_pFile->Commit();
        return;
    }
    m_pStandardOutput->Commit();
}

// False if the file does not begin with these rows.
bool CStatsWriter::CopyRows(const std::string& sFrom, const CStatsPosition& position)
{
    if (!std::filesystem::is_regular_file(PathFromUtf8(sFrom)))
    {
        return false;
    }
    m_pFile = std::make_unique<COutputFile>(m_sPath);
    m_Hash = CFnvHash();
    m_Position = {};
    std::ifstream stream = OpenInputFile(sFrom);
    std::string sPiece;
    for (std::uint64_t uLeft = position.bytes; uLeft > 0; uLeft -= sPiece.size())
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
    m_Position.iteration = position.iteration;
    return m_Position == position;
}
