#include "headless/report/SummaryValues.h"

#include "classes/core/Percent.h"
#include "classes/core/Utf8.h"
#include "headless/console/NumberText.h"
#include "headless/options/HexadecimalText.h"
#include "headless/report/RunResults.h"
#include "settings/CSettings.h"

#include <utility>

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
constexpr const char* c_sNone = "none";
constexpr const char* c_sNotCounted = "not counted";

// A file name may hold bytes that are no UTF-8, which JSON does not allow.
std::string WithReplacements(const std::string& sText)
{
    return Utf8FromWide(WideFromUtf8(sText));
}

class CValueList
{
public:
    void AddNumber(const char* sKey, const std::string& sName, const std::string& sNumber)
    {
        m_Values.push_back({sKey, sName, sNumber, EnumSummaryKind::Number, sNumber});
    }

    void AddDecimal(const char* sKey, const std::string& sName, double value, int decimals)
    {
        AddNumber(sKey, sName, TextOfFixed(value, decimals));
    }

    void AddText(const char* sKey, const std::string& sName, const std::string& sText)
    {
        m_Values.push_back({sKey, sName, sText, EnumSummaryKind::Text, sText});
    }

    void AddMissing(const char* sKey, const std::string& sName, const char* sShown)
    {
        m_Values.push_back({sKey, sName, sShown, EnumSummaryKind::Missing, ""});
    }

    void Add(CSummaryValue value) { m_Values.push_back(std::move(value)); }

    std::vector<CSummaryValue> Take() { return std::move(m_Values); }

private:
    std::vector<CSummaryValue> m_Values;
};

void AddColours(CValueList& list, const CSettings& settings)
{
    constexpr const char* c_sColourKeys[] = {"colour_1", "colour_2", "colour_3"};
    constexpr const char* c_sFactorKeys[] = {"factor_1", "factor_2", "factor_3"};
    list.AddText("colour_mode", "colour mode", settings.eMode == EnumAtomColourMode::Speed ? "speed" : "fixed");
    for (std::size_t u = 0; u < settings.colours.size(); ++u)
    {
        const std::string sNumber = std::to_string(u + 1);
        list.AddText(c_sColourKeys[u], "colour " + sNumber, TextOfColour(settings.colours[u]));
        if (settings.factors[u].IsSet())
        {
            list.AddText(c_sFactorKeys[u], "factor " + sNumber, Utf8FromWide(settings.factors[u].GetText().Get()));
        }
        else
        {
            list.AddMissing(c_sFactorKeys[u], "factor " + sNumber, c_sNone);
        }
    }
    list.AddText("background", "background", TextOfColour(settings.background));
}

void AddWorld(CValueList& list, const CSettings& settings, const CRunResults& results)
{
    // Many readers of JSON and CSV keep a number of 64 bits as a float. So the seed is a text, as the hash is.
    list.AddText("seed", "seed", std::to_string(results.seed));
    list.AddNumber("width", "width", std::to_string(settings.world.cx));
    list.AddNumber("height", "height", std::to_string(settings.world.cy));
    list.AddNumber("atoms", "atoms", std::to_string(results.atoms));
    list.AddNumber("smallest_radius", "smallest radius", std::to_string(results.smallestRadius));
    list.AddNumber("largest_radius", "largest radius", std::to_string(results.largestRadius));
    list.Add(
        {"start", "start", EscapeUnprintable(results.start), EnumSummaryKind::Text, WithReplacements(results.start)});
}

void AddTime(CValueList& list, const char* sKey, const char* sName, const CRunResults& results, double percent)
{
    if (results.durations.IsEmpty())
    {
        list.AddMissing(sKey, sName, c_sNone);
        return;
    }
    list.AddDecimal(sKey, sName, results.durations.GetPercentile(percent) / c_dNanoSecondsPerMs, c_iTimeDecimals);
}

void AddIterations(CValueList& list, const CRunResults& results)
{
    constexpr const char* c_sCollisionsKey = "collisions_per_iteration_percent";
    constexpr const char* c_sCollisionsName = "collisions per iteration (%)";
    list.AddNumber("iterations", "iterations", std::to_string(results.iterations));
    AddTime(list, "median_time_ms", "median time (ms)", results, c_dMedian);
    AddTime(list, "percentile_95_time_ms", "95th percentile time (ms)", results, c_dHighPercentile);
    if (results.iterations == 0)
    {
        list.AddMissing(c_sCollisionsKey, c_sCollisionsName, c_sNone);
        return;
    }
    list.AddDecimal(c_sCollisionsKey, c_sCollisionsName,
                    static_cast<double>(results.collisions) * c_dPercent / static_cast<double>(results.iterations) /
                        static_cast<double>(results.atoms),
                    c_iPercentDecimals);
}

void AddSpeeds(CValueList& list, const CRunResults& results)
{
    list.AddDecimal("minimum_speed", "minimum speed", static_cast<double>(results.velocities.min), c_iSpeedDecimals);
    list.AddDecimal("maximum_speed", "maximum speed", static_cast<double>(results.velocities.max), c_iSpeedDecimals);
    list.AddDecimal("average_speed", "average speed", static_cast<double>(results.velocities.avg), c_iSpeedDecimals);
    const double drift = results.endSpeedSum - results.startSpeedSum;
    const double percent = results.startSpeedSum > 0 ? drift / results.startSpeedSum * c_dPercent : 0.0;
    list.AddDecimal("total_speed_drift", "drift of the total speed", drift, c_iSpeedDecimals);
    list.AddDecimal("total_speed_drift_percent", "drift of the total speed (%)", percent, c_iDriftDecimals);
}

void AddOverlaps(CValueList& list, const std::optional<COverlapStatistics>& overlaps)
{
    constexpr const char* c_sPairsKey = "overlapping_pairs";
    constexpr const char* c_sPairsName = "overlapping pairs";
    constexpr const char* c_sLargestKey = "largest_overlap";
    constexpr const char* c_sLargestName = "largest overlap";
    constexpr const char* c_sFlagKey = "overlaps_at_least";
    if (!overlaps)
    {
        list.AddMissing(c_sPairsKey, c_sPairsName, c_sNotCounted);
        list.AddMissing(c_sLargestKey, c_sLargestName, c_sNotCounted);
        list.AddMissing(c_sFlagKey, "", "");
        return;
    }
    const std::string sBound = overlaps->bComplete ? "" : "at least ";
    const std::string sPairs = std::to_string(overlaps->pairs);
    const std::string sLargest = TextOfFixed(overlaps->largest, c_iOverlapDecimals);
    list.Add({c_sPairsKey, c_sPairsName, sBound + sPairs, EnumSummaryKind::Number, sPairs});
    list.Add({c_sLargestKey, c_sLargestName, sBound + sLargest, EnumSummaryKind::Number, sLargest});
    list.Add({c_sFlagKey, "", "", EnumSummaryKind::Flag, overlaps->bComplete ? "false" : "true"});
}

} // namespace

std::vector<CSummaryValue> MakeSummaryValues(const CSettings& settings, const CRunResults& results,
                                             const std::string& sCommand)
{
    CValueList list;
    list.Add({"version", "", "", EnumSummaryKind::Text, KINETARIUM_VERSION});
    list.Add({"command", "", "", EnumSummaryKind::Text, sCommand});
    AddWorld(list, settings, results);
    AddColours(list, settings);
    AddIterations(list, results);
    AddSpeeds(list, results);
    AddOverlaps(list, results.overlaps);
    list.AddNumber("atoms_outside", "atoms outside", std::to_string(results.atomsOutside));
    list.AddText("state_hash", "state hash", TextOfHash(results.hash));
    return list.Take();
}
