#pragma once

#include <chrono>
#include <cstdint>
#include <ostream>
#include <string>

// The line that shows the progress of a run: bar, percentage, iterations, rate and time left. seconds is the time since
// the start.
std::string FormatProgress(std::uint64_t uDone, std::uint64_t uTotal, double seconds);

// Updates that line on a terminal, about ten times a second.
class CProgressBar
{
public:
    // pStream null = no progress bar.
    CProgressBar(std::ostream* pStream, std::uint64_t uTotal);

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
    CClock::time_point m_Start = CClock::now();
    CClock::time_point m_NextUpdate = m_Start;
    std::size_t m_uShownChars = 0;
};
