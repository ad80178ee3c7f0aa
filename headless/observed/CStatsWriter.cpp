#include "headless/observed/CStatsWriter.h"

#include "headless/console/HeadlessError.h"
#include "headless/files/CByteReader.h"
#include "headless/files/CByteWriter.h"
#include "headless/observed/KineticSums.h"
#include "simulation/CAtoms.h"

#include <bit>

namespace
{

constexpr std::size_t c_uLongestRow = 4096; // bytes; far more than any has

} // namespace

CStatsWriter::CStatsWriter(const std::string& sPath, IByteSink* pStandardOutput, const CStatsTable& table)
    : CFileObserver(sPath, pStandardOutput, GetStatsHeader(table.bObservables)), m_Table(table)
{
}

void CStatsWriter::Prepare(const CAtoms& atoms)
{
    if (m_Table.bObservables)
    {
        m_NextBounces = m_Sums.bounces;
        AddNextBounces(m_NextBounces, atoms, m_Table.world);
    }
}

void CStatsWriter::Observe(const CRunMoment& moment)
{
    if (moment.iteration == 0)
    {
        return;
    }
    WriteHeaderOnce();
    ++m_Sums.iterations;
    m_Sums.collisions += moment.collisions;
    m_Sums.bounces = m_NextBounces;
    m_sLastRow.clear();
    if (moment.iteration % m_Table.every == 0)
    {
        m_File.Write(FormatRow(moment));
        m_Sums = {};
    }
    else if (moment.bLast)
    {
        m_sLastRow = FormatRow(moment);
    }
    m_File.KeepNowAndThen();
}

std::string CStatsWriter::GetProgress() const
{
    return MakeBytes([this](CByteWriter& writer) {
        writer.Write64(m_Table.every);
        writer.Write8(m_Table.bObservables ? 1 : 0);
        m_File.SavePosition(writer);
        writer.Write64(m_Sums.iterations);
        writer.Write64(m_Sums.collisions);
        for (const CWallBounces& wall : m_Sums.bounces)
        {
            writer.Write64(wall.count);
            writer.Write64(std::bit_cast<std::uint64_t>(wall.impulse));
        }
        writer.WriteText(m_sLastRow);
    });
}

void CStatsWriter::Continue(std::string_view sProgress)
{
    CByteReader reader(sProgress);
    CheckTable(reader);
    m_File.Continue(reader);
    m_bHeaderWritten = m_File.GetLength() > 0;
    ReadSums(reader);
}

bool CStatsWriter::MayObserveAgain() const
{
    return false;
}

void CStatsWriter::Commit()
{
    WriteHeaderOnce();
    m_File.Write(m_sLastRow);
    m_File.Commit();
}

std::string CStatsWriter::FormatRow(const CRunMoment& moment) const
{
    CStatsRow row = {moment.iteration, m_Sums.collisions, moment.atoms.GetVelocities(), {}};
    if (m_Table.bObservables)
    {
        row.observables = {ComputeKineticEnergy(moment.atoms), ComputeMomentum(moment.atoms), m_Sums.bounces,
                           ComputePressure(m_Sums.bounces, m_Table.world, m_Sums.iterations)};
    }
    return FormatStatsRow(row);
}

void CStatsWriter::CheckTable(CByteReader& reader) const
{
    const std::uint64_t uEvery = reader.Read64();
    const bool bObservables = reader.Read8() != 0;
    if (uEvery != m_Table.every)
    {
        throw CUsageError("--stats-every: contradicts the checkpoint of --resume, which holds " +
                          std::to_string(uEvery));
    }
    if (bObservables != m_Table.bObservables)
    {
        throw CUsageError(std::string("--observables: contradicts the checkpoint of --resume, whose statistics are ") +
                          (bObservables ? "with it" : "without it"));
    }
}

void CStatsWriter::ReadSums(CByteReader& reader)
{
    m_Sums.iterations = reader.Read64();
    m_Sums.collisions = reader.Read64();
    for (CWallBounces& wall : m_Sums.bounces)
    {
        wall.count = reader.Read64();
        wall.impulse = std::bit_cast<double>(reader.Read64());
    }
    m_NextBounces = m_Sums.bounces;
    m_sLastRow = reader.ReadText(c_uLongestRow);
    if (!reader.IsGood() || reader.GetLeft() > 0)
    {
        throw CHeadlessError("--stats: what the checkpoint of --resume holds of the statistics is damaged");
    }
}
