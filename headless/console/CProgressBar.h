#pragma once

#include <chrono>
#include <cstdint>
#include <ostream>
#include <string>

// The line that shows the progress of a run: bar, percentage, number of what is done, rate and time left. seconds is
// the time since the start; sUnit is what the numbers count.
std::string FormatProgress(std::uint64_t uDone, std::uint64_t uTotal, double seconds, const std::string& sUnit);

// Updates that line on a terminal, about ten times a second.
class CProgressBar
{
public:
    // pStream null = no progress bar.
    CProgressBar(std::ostream* pStream, std::uint64_t uTotal, std::string sUnit);

    CProgressBar(const CProgressBar&) = delete;
    CProgressBar& operator=(const CProgressBar&) = delete;

    // Wipes the line.
    ~CProgressBar();

    void Update(std::uint64_t uDone);

private:
    void Show(const std::string& sLine);

    using CClock = std::chrono::steady_clock;

    std::ostream* m_pStream;
    std::uint64_t m_uTotal;
    std::string m_sUnit;
    CClock::time_point m_Start = CClock::now();
    CClock::time_point m_NextUpdate = m_Start;
    std::size_t m_uShownChars = 0;
};
