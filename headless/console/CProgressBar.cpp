#include "headless/console/CProgressBar.h"

#include "classes/core/Percent.h"
#include "headless/console/NumberText.h"

#include <cmath>
#include <utility>

namespace
{

constexpr std::uint64_t c_uBarChars = 30;
constexpr std::chrono::milliseconds c_UpdatePeriod{100};
constexpr double c_dSecondsPerMinute = 60;
constexpr double c_dSecondsPerHour = 3600;
constexpr double c_dLargestShownHours = 9999;
constexpr double c_dWholeRatesFrom = 100; // lower rates are shown with one decimal

std::string FormatTimeLeft(double seconds)
{
    const double whole = std::ceil(seconds);
    if (whole < c_dSecondsPerMinute)
    {
        return TextOfFixed(whole, 0) + " s left";
    }
    if (whole < c_dSecondsPerHour)
    {
        const double minutes = std::floor(whole / c_dSecondsPerMinute);
        return TextOfFixed(minutes, 0) + " min " + TextOfFixed(whole - minutes * c_dSecondsPerMinute, 0) + " s left";
    }
    const double hours = std::floor(whole / c_dSecondsPerHour);
    if (hours > c_dLargestShownHours)
    {
        return "over a year left";
    }
    const double minutes = std::floor((whole - hours * c_dSecondsPerHour) / c_dSecondsPerMinute);
    return TextOfFixed(hours, 0) + " h " + TextOfFixed(minutes, 0) + " min left";
}

} // namespace

std::string FormatProgress(std::uint64_t uDone, std::uint64_t uTotal, double seconds, const std::string& sUnit)
{
    const double share = uTotal > 0 ? static_cast<double>(uDone) / static_cast<double>(uTotal) : 1.0;
    const auto uFilled = static_cast<std::size_t>(share * static_cast<double>(c_uBarChars));
    std::string sLine = "[";
    sLine.append(uFilled, '#').append(c_uBarChars - uFilled, '.').append("] ");
    sLine +=
        TextOfFixed(std::floor(share * c_dPercent), 0) + "%  " + std::to_string(uDone) + "/" + std::to_string(uTotal);
    if (uDone > 0 && seconds > 0)
    {
        const double rate = static_cast<double>(uDone) / seconds;
        sLine += "  " + TextOfFixed(rate, rate < c_dWholeRatesFrom ? 1 : 0) + " " + sUnit + "/s  " +
                 FormatTimeLeft(static_cast<double>(uTotal - uDone) / rate);
    }
    return sLine;
}

CProgressBar::CProgressBar(std::ostream* pStream, std::uint64_t uTotal, std::string sUnit)
    : m_pStream(pStream), m_uTotal(uTotal), m_sUnit(std::move(sUnit))
{
}

CProgressBar::~CProgressBar()
{
    if (m_pStream != nullptr && m_uShownChars > 0)
    {
        Show("");
        *m_pStream << '\r' << std::flush;
    }
}

void CProgressBar::Update(std::uint64_t uDone)
{
    if (m_pStream == nullptr)
    {
        return;
    }
    const CClock::time_point now = CClock::now();
    if (now >= m_NextUpdate)
    {
        m_NextUpdate = now + c_UpdatePeriod;
        Show(FormatProgress(uDone, m_uTotal, std::chrono::duration<double>(now - m_Start).count(), m_sUnit));
    }
}

// Blanks overwrite the rest of a longer line before it.
void CProgressBar::Show(const std::string& sLine)
{
    const std::size_t uWiped = m_uShownChars > sLine.size() ? m_uShownChars - sLine.size() : 0;
    *m_pStream << '\r' << sLine << std::string(uWiped, ' ') << std::flush;
    m_uShownChars = sLine.size();
}
