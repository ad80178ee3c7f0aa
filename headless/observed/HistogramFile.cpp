#include "headless/observed/HistogramFile.h"

#include "headless/console/NumberText.h"
#include "headless/observed/CSpeedHistogram.h"

#include <limits>

namespace
{

void AddRow(std::string& sText, std::uint64_t uIteration, double low, double high, std::uint64_t uAtoms, double density)
{
    sText += std::to_string(uIteration) + ',';
    AppendDouble(sText, low);
    sText += ',';
    AppendDouble(sText, high);
    sText += ',' + std::to_string(uAtoms) + ',';
    AppendDouble(sText, density);
    sText += '\n';
}

} // namespace

std::string GetHistogramHeader()
{
    return "iteration,from_speed,to_speed,atoms,density\n";
}

std::string FormatHistogram(std::uint64_t uIteration, const CSpeedHistogram& histogram)
{
    std::string sText;
    for (std::size_t uBin = 0; uBin < histogram.GetBinCount(); ++uBin)
    {
        AddRow(sText, uIteration, histogram.GetEdge(uBin), histogram.GetEdge(uBin + 1), histogram.GetCount(uBin),
               histogram.GetDensity(uBin));
    }
    AddRow(sText, uIteration, histogram.GetRange(), std::numeric_limits<double>::infinity(), histogram.GetFaster(), 0);
    return sText;
}
