#include "headless/report/Summary.h"

#include "classes/core/Percent.h"
#include "classes/core/Utf8.h"
#include "headless/console/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace
{

constexpr double c_dNanoSecondsPerMs = 1e6;
constexpr double c_dMedian = 50.0;
constexpr double c_dHighPercentile = 95.0;
constexpr int c_iTimeDecimals = 4; // tenths of a microsecond
constexpr int c_iSpeedDecimals = 6;
constexpr int c_iOverlapDecimals = 6;
constexpr int c_iPercentDecimals = 2;
constexpr int c_iDriftDecimals = 4;
constexpr int c_iHexadecimal = 16;
constexpr std::size_t c_uHashDigits = 16;
constexpr std::size_t c_uColourDigits = 6;
constexpr const char* c_sNone = "none";
constexpr const char* c_sNotCounted = "not counted";

std::string TextOfHexadecimal(std::uint64_t uValue, std::size_t uDigits)
{
    std::array<char, c_uHashDigits> buffer{};
    const std::to_chars_result result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), uValue, c_iHexadecimal);
    const std::string sText(buffer.data(), result.ptr);
    return std::string(uDigits - sText.size(), '0') + sText;
}

std::string TextOfColour(ColourRef colour)
{
    return TextOfHexadecimal(MakeColour(GetBlue(colour), GetGreen(colour), GetRed(colour)), c_uColourDigits);
}

void AddLine(std::string& sText, const std::string& sName, const std::string& sValue)
{
    sText += sName + ": " + sValue + '\n';
}

void AddSettings(std::string& sText, const CSettings& settings, const CRunResults& results)
{
    AddLine(sText, "seed", std::to_string(results.seed));
    AddLine(sText, "width", std::to_string(settings.world.cx));
    AddLine(sText, "height", std::to_string(settings.world.cy));
    AddLine(sText, "atoms", std::to_string(results.atoms));
    AddLine(sText, "smallest radius", std::to_string(results.smallestRadius));
    AddLine(sText, "largest radius", std::to_string(results.largestRadius));
    AddLine(sText, "start", EscapeUnprintable(results.start));
    AddLine(sText, "colour mode", settings.eMode == EnumAtomColourMode::Speed ? "speed" : "fixed");
    for (std::size_t u = 0; u < settings.colours.size(); ++u)
    {
        const std::string sNumber = std::to_string(u + 1);
        const CFactor& factor = settings.factors[u];
        AddLine(sText, "colour " + sNumber, TextOfColour(settings.colours[u]));
        AddLine(sText, "factor " + sNumber, factor.IsSet() ? Utf8FromWide(factor.GetText().Get()) : c_sNone);
    }
    AddLine(sText, "background", TextOfColour(settings.background));
}

void AddIterations(std::string& sText, const CRunResults& results)
{
    const bool bAny = results.iterations > 0;
    const auto milliSeconds = [&results](double percent) {
        return results.durations.IsEmpty()
                   ? c_sNone
                   : TextOfFixed(results.durations.GetPercentile(percent) / c_dNanoSecondsPerMs, c_iTimeDecimals);
    };
    const double collided = static_cast<double>(results.collisions) * c_dPercent /
                            static_cast<double>(results.iterations) / static_cast<double>(results.atoms);
    AddLine(sText, "iterations", std::to_string(results.iterations));
    AddLine(sText, "median time (ms)", milliSeconds(c_dMedian));
    AddLine(sText, "95th percentile time (ms)", milliSeconds(c_dHighPercentile));
    AddLine(sText, "collisions per iteration (%)", bAny ? TextOfFixed(collided, c_iPercentDecimals) : c_sNone);
}

void AddOverlaps(std::string& sText, const std::optional<COverlapStatistics>& overlaps)
{
    const std::string sBound = overlaps && !overlaps->bComplete ? "at least " : "";
    AddLine(sText, "overlapping pairs", overlaps ? sBound + std::to_string(overlaps->pairs) : c_sNotCounted);
    AddLine(sText, "largest overlap",
            overlaps ? sBound + TextOfFixed(overlaps->largest, c_iOverlapDecimals) : c_sNotCounted);
}

void AddState(std::string& sText, const CRunResults& results)
{
    AddLine(sText, "minimum speed", TextOfFixed(static_cast<double>(results.velocities.min), c_iSpeedDecimals));
    AddLine(sText, "maximum speed", TextOfFixed(static_cast<double>(results.velocities.max), c_iSpeedDecimals));
    AddLine(sText, "average speed", TextOfFixed(static_cast<double>(results.velocities.avg), c_iSpeedDecimals));
    const double drift = results.endSpeedSum - results.startSpeedSum;
    const double percent = results.startSpeedSum > 0 ? drift / results.startSpeedSum * c_dPercent : 0.0;
    AddLine(sText, "drift of the total speed", TextOfFixed(drift, c_iSpeedDecimals));
    AddLine(sText, "drift of the total speed (%)", TextOfFixed(percent, c_iDriftDecimals));
    AddOverlaps(sText, results.overlaps);
    AddLine(sText, "atoms outside", std::to_string(results.atomsOutside));
    AddLine(sText, "state hash", TextOfHexadecimal(results.hash, c_uHashDigits));
}

} // namespace

double SumSpeeds(const CAtoms& atoms)
{
    double sum = 0;
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const auto vx = static_cast<double>(atoms[index].vx);
        const auto vy = static_cast<double>(atoms[index].vy);
        sum += std::sqrt(vx * vx + vy * vy);
    }
    return sum;
}

std::string FormatSummary(const CSettings& settings, const CRunResults& results)
{
    std::string sText;
    AddSettings(sText, settings, results);
    AddIterations(sText, results);
    AddState(sText, results);
    return sText;
}
