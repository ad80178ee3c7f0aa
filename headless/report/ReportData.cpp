#include "headless/report/ReportData.h"

#include "headless/report/CReport.h"
#include "headless/report/SpeedLaws.h"

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>
#include <cmath>

namespace
{

using CJson = nlohmann::ordered_json;

// As many digits as a float has. More would double the size of a page.
CJson Rounded(double value)
{
    constexpr int c_iDigits = 7;
    if (!std::isfinite(value))
    {
        return nullptr;
    }
    std::array<char, 32> buffer{};
    const std::to_chars_result text =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, c_iDigits);
    double rounded = 0;
    std::from_chars(buffer.data(), text.ptr, rounded);
    return rounded;
}

CJson MakeCurve(const CReport& report)
{
    CJson curve;
    for (const CCurvePoint& point : report.curve)
    {
        curve["iteration"].push_back(point.iteration);
        curve["energy"].push_back(Rounded(point.energy));
        curve["collisions"].push_back(
            Rounded(static_cast<double>(point.collisions) / static_cast<double>(point.counted)));
        curve["minimum"].push_back(Rounded(static_cast<double>(point.minSpeed)));
        curve["average"].push_back(Rounded(static_cast<double>(point.averageSpeed)));
        curve["maximum"].push_back(Rounded(static_cast<double>(point.maxSpeed)));
    }
    return curve;
}

CJson MakeSpeeds(const CSpeedDistribution& speeds)
{
    CJson json;
    const CSpeedHistogram& histogram = speeds.histogram;
    for (std::size_t u = 0; u < histogram.GetBinCount(); ++u)
    {
        json["edges"].push_back(Rounded(histogram.GetEdge(u)));
        json["density"].push_back(Rounded(histogram.GetDensity(u)));
    }
    json["edges"].push_back(Rounded(histogram.GetRange()));
    for (std::size_t u = 0; u < c_uLawPoints; ++u)
    {
        const double speed = GetLawSpeed(speeds, u);
        json["speed"].push_back(Rounded(speed));
        json["rayleigh"].push_back(Rounded(ComputeRayleighDensity(speed, speeds.meanSquare)));
        json["gamma"].push_back(Rounded(ComputeGammaDensity(speed, speeds.mean)));
    }
    return json;
}

} // namespace

double GetLawSpeed(const CSpeedDistribution& speeds, std::size_t uPoint)
{
    return speeds.histogram.GetRange() * static_cast<double>(uPoint) / static_cast<double>(c_uLawPoints - 1);
}

std::string MakeReportData(const CReport& report)
{
    CJson data = CJson::object();
    if (report.curve.size() > 1)
    {
        data["curve"] = MakeCurve(report);
    }
    if (report.speeds)
    {
        data["speeds"] = MakeSpeeds(*report.speeds);
    }
    return data.dump();
}
