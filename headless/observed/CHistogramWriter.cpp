#include "headless/observed/CHistogramWriter.h"

#include "headless/console/HeadlessError.h"
#include "headless/console/NumberText.h"
#include "headless/files/CByteReader.h"
#include "headless/files/CByteWriter.h"
#include "headless/observed/CSpeedHistogram.h"
#include "headless/observed/HistogramFile.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace
{

constexpr std::size_t c_uLongestText = std::size_t{512} * 1024; // bytes; more than the most bins need

} // namespace

CHistogramWriter::CHistogramWriter(const std::string& sPath, IByteSink* pStandardOutput, CHistogramTable table)
    : CFileObserver(sPath, pStandardOutput, GetHistogramHeader()), m_Table(std::move(table))
{
}

void CHistogramWriter::Observe(const CRunMoment& moment)
{
    WriteHeaderOnce();
    if (!m_sLast.empty() && m_uLast < moment.iteration && IsChosen(m_uLast))
    {
        m_File.Write(m_sLast);
    }
    m_sLast.clear();
    if (IsChosen(moment.iteration))
    {
        m_File.Write(Count(moment));
    }
    else if (moment.bLast && m_Table.bEnd)
    {
        m_sLast = Count(moment);
        m_uLast = moment.iteration;
    }
    m_File.KeepNowAndThen();
}

std::string CHistogramWriter::GetProgress() const
{
    return MakeBytes([this](CByteWriter& writer) {
        writer.Write64(m_Table.bins);
        writer.Write64(std::bit_cast<std::uint64_t>(m_Table.range));
        m_File.SavePosition(writer);
        writer.Write64(m_uLast);
        writer.WriteText(m_sLast);
    });
}

void CHistogramWriter::Continue(std::string_view sProgress)
{
    CByteReader reader(sProgress);
    CheckTable(reader);
    m_File.Continue(reader);
    m_bHeaderWritten = m_File.GetLength() > 0;
    m_uLast = reader.Read64();
    m_sLast = reader.ReadText(c_uLongestText);
    if (!reader.IsGood() || reader.GetLeft() > 0)
    {
        throw CHeadlessError("--histogram: what the checkpoint of --resume holds of the histograms is damaged");
    }
}

// A histogram is written in one piece, and nothing interrupts it.
bool CHistogramWriter::MayObserveAgain() const
{
    return true;
}

void CHistogramWriter::Commit()
{
    WriteHeaderOnce();
    m_File.Write(m_sLast);
    m_File.Commit();
}

bool CHistogramWriter::IsChosen(std::uint64_t uIteration) const
{
    return std::binary_search(m_Table.iterations.begin(), m_Table.iterations.end(), uIteration);
}

std::string CHistogramWriter::Count(const CRunMoment& moment) const
{
    CSpeedHistogram histogram(m_Table.bins, m_Table.range);
    histogram.Add(moment.atoms);
    return FormatHistogram(moment.iteration, histogram);
}

void CHistogramWriter::CheckTable(CByteReader& reader) const
{
    const std::uint64_t uBins = reader.Read64();
    const auto range = std::bit_cast<double>(reader.Read64());
    if (uBins != m_Table.bins)
    {
        throw CUsageError("--histogram-bins: contradicts the checkpoint of --resume, which holds " +
                          std::to_string(uBins));
    }
    if (range != m_Table.range)
    {
        std::string sRange;
        AppendDouble(sRange, range);
        throw CUsageError("--histogram-range: contradicts the checkpoint of --resume, which holds " + sRange);
    }
}
