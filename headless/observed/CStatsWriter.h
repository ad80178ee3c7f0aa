#pragma once

#include "classes/core/CSize.h"
#include "headless/observed/CFileObserver.h"
#include "headless/observed/StatsFile.h"
#include "headless/observed/WallBounces.h"

#include <cstdint>
#include <string>

class CByteReader;

// The rows and columns of the statistics.
struct CStatsTable
{
    std::uint64_t every = 1; // iterations from row to row
    bool bObservables = false;
    CSize<int> world; // for the observables
};

// The statistics of a run as CSV, a row every so many iterations and one for the last.
class CStatsWriter : public CFileObserver
{
public:
    // See CGrowingFile.
    CStatsWriter(const std::string& sPath, IByteSink* pStandardOutput, const CStatsTable& table);

    void Prepare(const CAtoms& atoms) override;
    void Observe(const CRunMoment& moment) override;
    std::string GetProgress() const override;

    // Throws CUsageError if the run had another table.
    void Continue(std::string_view sProgress) override;

    bool MayObserveAgain() const override;
    void Commit() override;

private:
    struct CSums // since the last row
    {
        std::uint64_t iterations{};
        std::uint64_t collisions{};
        CBouncesOfWalls bounces{};
    };

    std::string FormatRow(const CRunMoment& moment) const;
    void CheckTable(CByteReader& reader) const;
    void ReadSums(CByteReader& reader);

    const CStatsTable m_Table;
    CSums m_Sums;
    CBouncesOfWalls m_NextBounces{}; // those of m_Sums and of the iteration that Prepare has seen

    // The row of the last iteration where no row is due. It is written only when the run commits: if the run is
    // continued, it has no such row.
    std::string m_sLastRow;
};
