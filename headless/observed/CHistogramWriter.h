#pragma once

#include "headless/observed/CFileObserver.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class CByteReader;

// Which histograms are made of a run.
struct CHistogramTable
{
    std::vector<std::uint64_t> iterations; // rising
    bool bEnd = true;                      // also that of the last iteration
    std::size_t bins{};                    // see CSpeedHistogram
    double range{};                        // see CSpeedHistogram
};

// The speeds at chosen iterations as CSV.
class CHistogramWriter : public CFileObserver
{
public:
    // See CGrowingFile.
    CHistogramWriter(const std::string& sPath, IByteSink* pStandardOutput, CHistogramTable table);

    void Observe(const CRunMoment& moment) override;
    std::string GetProgress() const override;

    // Throws CUsageError if the run had other bins. It may have had other iterations.
    void Continue(std::string_view sProgress) override;

    bool MayObserveAgain() const override;
    void Commit() override;

private:
    bool IsChosen(std::uint64_t uIteration) const;
    std::string Count(const CRunMoment& moment) const;
    void CheckTable(CByteReader& reader) const;

    const CHistogramTable m_Table;

    // The histogram of the last iteration where that is not chosen by its number. It is written only when the run
    // commits: if the run is continued, another iteration is the last.
    std::string m_sLast;
    std::uint64_t m_uLast = 0;
};
