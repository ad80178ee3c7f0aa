#include "headless/observed/CStatsWriter.h"

#include "headless/console/HeadlessError.h"
#include "headless/files/CByteReader.h"
#include "headless/files/CByteWriter.h"
#include "headless/files/CTextSink.h"
#include "headless/observed/StatsFile.h"
#include "simulation/CAtoms.h"

CStatsWriter::CStatsWriter(const std::string& sPath, IByteSink* pStandardOutput) : m_File(sPath, pStandardOutput) {}

void CStatsWriter::Prepare(const CAtoms& /*atoms*/) {}

void CStatsWriter::Observe(const CRunMoment& moment)
{
    if (moment.iteration > 0)
    {
        WriteHeaderOnce();
        WriteStatsRow(m_File, moment.iteration, moment.collisions, moment.atoms.GetVelocities());
        m_File.KeepNowAndThen();
    }
}

void CStatsWriter::Keep()
{
    m_File.Keep();
}

std::string CStatsWriter::GetProgress() const
{
    CTextSink sink;
    CByteWriter writer(sink);
    m_File.SavePosition(writer);
    writer.Flush();
    return sink.GetText();
}

void CStatsWriter::Continue(std::string_view sProgress)
{
    CByteReader reader(sProgress);
    m_File.Continue(reader);
    m_bHeaderWritten = m_File.GetLength() > 0;
}

bool CStatsWriter::MayObserveAgain() const
{
    return false;
}

bool CStatsWriter::IsDirect() const
{
    return m_File.IsDirect();
}

void CStatsWriter::Commit()
{
    WriteHeaderOnce();
    m_File.Commit();
}

void CStatsWriter::WriteHeaderOnce()
{
    if (!m_bHeaderWritten)
    {
        WriteStatsHeader(m_File);
        m_bHeaderWritten = true;
    }
}
