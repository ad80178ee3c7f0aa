#include "headless/report/ReportPage.h"

#include "headless/console/NumberText.h"
#include "headless/report/CReport.h"
#include "headless/report/PageFiles.h"
#include "headless/report/PageParts.h"
#include "headless/report/PageText.h"
#include "headless/report/ReportCharts.h"
#include "headless/report/ReportData.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <string_view>

namespace
{

constexpr int c_iEnergyDecimals = 6;

const CSummaryValue& GetValue(const CReport& report, std::string_view sKey)
{
    return *std::find_if(report.values.begin(), report.values.end(),
                         [sKey](const CSummaryValue& value) { return value.sKey == sKey; });
}

std::string GetShown(const CReport& report, std::string_view sKey)
{
    return GetValue(report, sKey).shown;
}

std::string GetData(const CReport& report, std::string_view sKey)
{
    return GetValue(report, sKey).data;
}

CPageValue MakeValue(const CSummaryValue& value)
{
    const std::string_view sKey = value.sKey;
    const bool bColour = sKey == "background" || (sKey.starts_with("colour_") && sKey != "colour_mode");
    return {value.sKey, value.name, value.shown, bColour ? value.data : ""};
}

// The summary up to the iterations, without the seed's neighbours that only programs read, and without times.
void Split(const CReport& report, std::vector<CPageValue>& settings, std::vector<CPageValue>& results)
{
    std::vector<CPageValue>* pTarget = &settings;
    for (const CSummaryValue& value : report.values)
    {
        const bool bTime = std::string_view(value.sKey).ends_with("_time_ms");
        if (!value.name.empty() && !bTime)
        {
            pTarget->push_back(MakeValue(value));
        }
        if (std::string_view(value.sKey) == "iterations")
        {
            pTarget = &results;
        }
    }
}

std::string MakeKeyFiguresOf(const CReport& report)
{
    const auto value = [&report](const char* sKey, const char* sName) {
        return CPageValue{sKey, sName, GetShown(report, sKey), ""};
    };
    return MakeKeyFigures(
        {value("atoms", "Atoms"),
         value("iterations", "Iterations"),
         value("average_speed", "Average speed"),
         {"energy", "Kinetic energy per atom", TextOfFixed(report.curve.back().energy, c_iEnergyDecimals), ""},
         value("collisions_per_iteration_percent", "Collisions per iteration (%)")});
}

// The digits of a SHA-256 as a Content-Security-Policy has them.
std::string MakePolicyHash(std::string_view sHexadecimal)
{
    constexpr int c_iBase = 16;
    std::string sBytes;
    for (std::size_t u = 0; u + 1 < sHexadecimal.size(); u += 2)
    {
        unsigned uByte = 0;
        std::from_chars(sHexadecimal.data() + u, sHexadecimal.data() + u + 2, uByte, c_iBase);
        sBytes += static_cast<char>(static_cast<unsigned char>(uByte));
    }
    return EncodeBase64(sBytes);
}

void AddPicture(const CReport& report, std::map<std::string, std::string>& texts)
{
    const std::string sWorld = GetShown(report, "width") + " x " + GetShown(report, "height") + " units";
    const std::string sPixel = report.unitsOfPixel == 1
                                   ? "One pixel is one square unit."
                                   : "One pixel is the mean of " + std::to_string(report.unitsOfPixel) + " x " +
                                         std::to_string(report.unitsOfPixel) + " square units.";
    texts["PICTURE"] = EncodeBase64(report.picture);
    texts["PICTURE_WIDTH"] = std::to_string(report.pictureSize.cx);
    texts["PICTURE_HEIGHT"] = std::to_string(report.pictureSize.cy);
    texts["PICTURE_TEXT"] = EscapeHtml("The world of " + sWorld + " with " + GetShown(report, "atoms") +
                                       " atoms after iteration " + GetShown(report, "iterations"));
    const std::string sColours = GetData(report, "colour_mode") == "speed" ? "The colours show the speed of the atoms: "
                                                                             "slow, medium and fast. "
                                                                           : "The colours are those of three groups of "
                                                                             "atoms. ";
    texts["PICTURE_CAPTION"] =
        EscapeHtml(sWorld + " after iteration " + GetShown(report, "iterations") + ". " + sColours + sPixel);
}

void AddFiles(std::map<std::string, std::string>& texts)
{
    const auto add = [&texts](const std::string& sName, const CPageFile& file) {
        texts[sName] = file.bytes;
        texts[sName + "_HASH"] = MakePolicyHash(file.sha256);
    };
    add("STYLE", GetPageStyle());
    add("SCRIPT", GetPageScript());
    add("LIBRARY", GetChartLibrary());
}

} // namespace

std::string MakeReportPage(const CReport& report)
{
    std::map<std::string, std::string> texts;
    std::vector<CPageValue> settings;
    std::vector<CPageValue> results;
    Split(report, settings, results);
    AddFiles(texts);
    AddPicture(report, texts);
    texts["TITLE"] = EscapeHtml(
        GetShown(report, "atoms") + (GetShown(report, "atoms") == "1" ? " atom, " : " atoms, ") +
        GetShown(report, "iterations") + (GetShown(report, "iterations") == "1" ? " iteration" : " iterations") +
        ", seed " + GetShown(report, "seed"));
    texts["HASH"] = EscapeHtml(GetShown(report, "state_hash"));
    texts["VERSION"] = EscapeHtml(GetData(report, "version"));
    texts["COMMAND"] = MakeCommand(GetData(report, "command"));
    texts["KEY_FIGURES"] = MakeKeyFiguresOf(report);
    texts["COURSE"] = MakeCourseSection(report);
    texts["SPEEDS"] = MakeSpeedSection(report);
    texts["SETTINGS"] = MakeValueTable(settings);
    texts["RESULTS"] = MakeValueTable(results);
    texts["DATA"] = MakeReportData(report);
    return FillTemplate(GetPageTemplate().bytes, texts);
}
