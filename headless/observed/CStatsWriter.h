#pragma once

#include "classes/core/CFnvHash.h"
#include "headless/files/IByteSink.h"
#include "headless/states/Checkpoint.h"
#include "simulation/CAtoms.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

class COutputFile;

// The statistics of a run while it goes on. The rows so far are in "FILE.partial" (at most half a second of the run is
// missing), which stays when the program ends in whatever way and becomes FILE at the end of the run.
class CStatsWriter : public IByteSink
{
public:
    // Begins with the rows up to the position, which are those of FILE or FILE.partial; later rows of an earlier
    // attempt are left out. Standard output (sink) and devices only get the new rows. Throws CHeadlessError if neither
    // file has exactly these rows. sPath is UTF-8.
    CStatsWriter(const std::string& sPath, IByteSink* pStandardOutput, const CStatsPosition& position);
    CStatsWriter(const CStatsWriter&) = delete;
    CStatsWriter& operator=(const CStatsWriter&) = delete;
    ~CStatsWriter() override;

    void AddRow(std::uint64_t uIteration, std::uint32_t uCollisions, const CVelocityStatistics& velocities);

    // Puts all rows so far on the disk.
    void Keep();

    // Where the rows end; all zero without a row.
    CStatsPosition GetPosition() const;

    // True for standard output, a pipe, a device: there a write may wait for ever.
    bool IsDirect() const;

    // Appends bytes that are no row; the constructor writes the header so.
    void Write(std::string_view sBytes) override;

    // Puts the file into its place.
    void Commit() override;

private:
    using CClock = std::chrono::steady_clock;

    bool CopyRows(const std::string& sFrom, const CStatsPosition& position);

    std::string m_sPath;
    IByteSink* m_pStandardOutput;
    std::unique_ptr<COutputFile> m_pFile; // null for standard output
    CFnvHash m_Hash;
    CStatsPosition m_Position;
    CClock::time_point m_NextKeep;
};
