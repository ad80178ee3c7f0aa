#include "headless/report/ReportCharts.h"

#include "headless/console/NumberText.h"
#include "headless/report/CReport.h"
#include "headless/report/PageParts.h"
#include "headless/report/SpeedLaws.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace
{

constexpr int c_iSpeedDecimals = 6;
constexpr int c_iCollisionDecimals = 2;
constexpr int c_iDistanceDecimals = 4;
constexpr std::size_t c_uTableSteps = 100; // more rows than about a hundred nobody reads

using CReadPoint = std::function<double(const CCurvePoint&)>;

// A line of a chart, and a column of its table.
struct CCourse
{
    std::string name;
    CReadPoint read;
    int decimals{};

    std::string GetText(const CCurvePoint& point) const
    {
        const double value = read(point);
        return std::isnan(value) ? "none" : TextOfFixed(value, decimals);
    }
};

// NaN at the start of a run, before which there was no iteration.
double GetMeanCollisions(const CCurvePoint& point)
{
    return static_cast<double>(point.collisions) / static_cast<double>(point.counted);
}

// Some of the points, with the first and the last one.
std::vector<CCurvePoint> ThinOut(const std::vector<CCurvePoint>& points)
{
    const std::size_t uStep = std::max<std::size_t>((points.size() + c_uTableSteps - 1) / c_uTableSteps, 1);
    std::vector<CCurvePoint> some;
    for (std::size_t u = 0; u + 1 < points.size(); u += uStep)
    {
        some.push_back(points[u]);
    }
    some.push_back(points.back());
    return some;
}

CPageTable MakeCourseTable(const std::vector<CCurvePoint>& curve, const std::vector<CCourse>& courses,
                           const std::string& sCaption)
{
    const std::vector<CCurvePoint> points = ThinOut(curve);
    CPageTable table;
    table.caption = points.size() == curve.size() ? sCaption
                                                  : sCaption + ", " + std::to_string(points.size()) + " of " +
                                                        std::to_string(curve.size()) + " points";
    table.headings.push_back("Iteration");
    for (const CCourse& course : courses)
    {
        table.headings.push_back(course.name);
    }
    for (const CCurvePoint& point : points)
    {
        std::vector<std::string> row = {std::to_string(point.iteration)};
        for (const CCourse& course : courses)
        {
            row.push_back(course.GetText(point));
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

// "Minimum from 0.1 to 0.2, lowest 0.1, highest 0.3": from the first point to the last one that have a value.
std::string DescribeCourse(const std::vector<CCurvePoint>& curve, const CCourse& course)
{
    std::vector<CCurvePoint> points;
    std::copy_if(curve.begin(), curve.end(), std::back_inserter(points),
                 [&course](const CCurvePoint& point) { return !std::isnan(course.read(point)); });
    if (points.empty())
    {
        return course.name + " without a value.";
    }
    const auto less = [&course](const CCurvePoint& a, const CCurvePoint& b) { return course.read(a) < course.read(b); };
    const auto [lowest, highest] = std::minmax_element(points.begin(), points.end(), less);
    return course.name + " from " + course.GetText(points.front()) + " at iteration " +
           std::to_string(points.front().iteration) + " to " + course.GetText(points.back()) + " at iteration " +
           std::to_string(points.back().iteration) + ", lowest " + course.GetText(*lowest) + ", highest " +
           course.GetText(*highest) + ".";
}

std::string MakeCourseChart(const CReport& report, const std::string& sId, const std::string& sHeading,
                            const std::string& sCaption, const std::vector<CCourse>& courses)
{
    CPageChart chart;
    chart.id = sId;
    chart.heading = sHeading;
    chart.caption = sCaption;
    chart.shows = "Line chart over the iterations.";
    for (const CCourse& course : courses)
    {
        chart.shows.append(" ").append(DescribeCourse(report.curve, course));
    }
    chart.table = MakeCourseTable(report.curve, courses, sHeading);
    return MakeChart(chart);
}

CCourse MakeSpeedCourse(const std::string& sName, float CCurvePoint::*pSpeed)
{
    return {sName, [pSpeed](const CCurvePoint& point) { return static_cast<double>(point.*pSpeed); }, c_iSpeedDecimals};
}

CPageTable MakeSpeedTable(const CSpeedDistribution& speeds)
{
    const CSpeedHistogram& histogram = speeds.histogram;
    const auto total = static_cast<double>(histogram.GetTotal());
    CPageTable table;
    table.caption = "Speeds of the atoms and of the two laws";
    table.headings = {"Speed from", "to below", "Atoms", "Rayleigh law", "Gamma law"};
    for (std::size_t u = 0; u < histogram.GetBinCount(); ++u)
    {
        const double low = histogram.GetEdge(u);
        const double high = histogram.GetEdge(u + 1);
        const double rayleigh =
            ComputeRayleighDistribution(high, speeds.meanSquare) - ComputeRayleighDistribution(low, speeds.meanSquare);
        const double gamma = ComputeGammaDistribution(high, speeds.mean) - ComputeGammaDistribution(low, speeds.mean);
        table.rows.push_back({TextOfFixed(low, c_iSpeedDecimals), TextOfFixed(high, c_iSpeedDecimals),
                              std::to_string(histogram.GetCount(u)), TextOfFixed(total * rayleigh, 1),
                              TextOfFixed(total * gamma, 1)});
    }
    return table;
}

std::string DescribeDistances(const CSpeedDistribution& speeds)
{
    constexpr std::uint64_t c_uFewest = 20;
    const std::uint64_t uTotal = speeds.histogram.GetTotal();
    if (uTotal < c_uFewest)
    {
        return "With less than " + std::to_string(c_uFewest) + " atoms, such a distance tells nothing.";
    }
    // 95 of 100 samples are nearer to their law than this: Kolmogorov's limit law, for large samples.
    constexpr double c_dLimit = 1.358;
    const double chance = c_dLimit / std::sqrt(static_cast<double>(uTotal));
    return "The distance of Kolmogorov and Smirnov is the largest difference between the share of atoms up to a speed "
           "and the share that the law gives; 0 is a perfect fit. Of samples of " +
           std::to_string(uTotal) + " atoms that follow a law exactly, 95 of 100 have a distance below " +
           TextOfFixed(chance, c_iDistanceDecimals) + ".";
}

} // namespace

std::string MakeCourseSection(const CReport& report)
{
    const CCourse energy = {"Kinetic energy per atom", [](const CCurvePoint& point) { return point.energy; },
                            c_iSpeedDecimals};
    const CCourse collisions = {"Collisions per iteration", GetMeanCollisions, c_iCollisionDecimals};
    if (report.curve.size() < 2)
    {
        const CCurvePoint& only = report.curve.front();
        return MakeNote("There is only one moment, iteration " + std::to_string(only.iteration) +
                        ", so there is no course to draw. The kinetic energy per atom is " + energy.GetText(only) +
                        " (units per iteration)\u00B2.");
    }
    const std::uint64_t uFirst = report.curve.front().iteration;
    const std::string sBefore = uFirst == 0 ? ""
                                            : MakeNote("The courses begin at iteration " + std::to_string(uFirst) +
                                                       ": the run before it had no report.");
    return sBefore + "<div class=\"charts\">\n" +
           MakeCourseChart(report, "energy", "Kinetic energy",
                           "The mean of v\u00B2 / 2 over all atoms, in (units per iteration)\u00B2; every atom has the "
                           "mass 1. The axis does not begin at zero.",
                           {energy}) +
           MakeCourseChart(report, "collisions", "Collisions",
                           "Per iteration, in the mean of the iterations since the point before. A pair that shares "
                           "several cells of the grid counts once in each.",
                           {collisions}) +
           MakeCourseChart(report, "course-of-speeds", "Speeds",
                           "The smallest, the average and the largest speed of all atoms, in units per iteration.",
                           {MakeSpeedCourse("Minimum", &CCurvePoint::minSpeed),
                            MakeSpeedCourse("Average", &CCurvePoint::averageSpeed),
                            MakeSpeedCourse("Maximum", &CCurvePoint::maxSpeed)}) +
           "</div>\n";
}

std::string MakeSpeedSection(const CReport& report)
{
    if (!report.speeds)
    {
        return MakeNote("Every atom is at rest, or a speed is not finite: there is no distribution to draw.");
    }
    const CSpeedDistribution& speeds = *report.speeds;
    const std::string sRayleigh = TextOfFixed(speeds.rayleighDistance, c_iDistanceDecimals);
    const std::string sGamma = TextOfFixed(speeds.gammaDistance, c_iDistanceDecimals);
    CPageChart chart;
    chart.id = "distribution";
    chart.bLarge = true;
    chart.shows = "Histogram of the speeds of " + std::to_string(speeds.histogram.GetTotal()) +
                  " atoms beside two laws. Distance to the Rayleigh law " + sRayleigh + ", to the Gamma law " + sGamma +
                  ".";
    chart.caption =
        "Beside the atoms: the Rayleigh law (that of Maxwell and Boltzmann in two dimensions) with the same "
        "mean square speed, " +
        TextOfFixed(speeds.meanSquare, c_iDistanceDecimals) +
        ", and the Gamma law of shape 4 with the same mean speed, " + TextOfFixed(speeds.mean, c_iDistanceDecimals) +
        ".";
    chart.table = MakeSpeedTable(speeds);
    return MakeChart(chart) + "<h3>Distance to the laws</h3>\n" +
           MakeValueTable({{"rayleigh_distance", "Rayleigh law", sRayleigh, ""},
                           {"gamma_distance", "Gamma law of shape 4", sGamma, ""}}) +
           MakeNote(DescribeDistances(speeds));
}
