#include "headless/CExperiment.h"

#include "headless/console/HeadlessError.h"
#include "headless/files/CInterruptibleSink.h"
#include "headless/files/COutputFile.h"
#include "headless/files/CTextSink.h"
#include "headless/observed/IRunObserver.h"
#include "headless/pictures/CWorldImage.h"
#include "headless/pictures/PngFile.h"
#include "headless/pictures/ScaleDown.h"
#include "headless/report/CReport.h"
#include "headless/report/ReportPage.h"

#include <algorithm>
#include <new>
#include <string_view>

namespace
{

constexpr int c_iMostPictureUnits = 1200;          // a larger world is shown smaller
constexpr std::size_t c_uPieceBytes = 1024 * 1024; // between two looks for an interruption

void AddPicture(const CAtoms& atoms, const CSettings& settings, CReport& report)
{
    CWorldImage image = DrawWorld(atoms, settings);
    const int longest = std::max(settings.world.cx, settings.world.cy);
    report.unitsOfPixel = (longest + c_iMostPictureUnits - 1) / c_iMostPictureUnits;
    if (report.unitsOfPixel > 1)
    {
        image = ScaleDown(image, report.unitsOfPixel);
    }
    report.pictureSize = image.GetSize();
    CTextSink png;
    WritePng(image, png);
    report.picture = png.GetText();
}

} // namespace

void CExperiment::SaveReport(const std::vector<CSummaryValue>& values) const
{
    if (!m_Options.report)
    {
        return;
    }
    CInterruptibleSink file(std::make_unique<COutputFile>(*m_Options.report), [this] { CheckInterruption(); });
    try
    {
        CReport report;
        report.values = values;
        report.curve = m_Curve.GetPoints({m_Results.iterations, m_uLastCollisions, true, m_Atoms, m_Settings});
        report.speeds = ComputeSpeedDistribution(m_Atoms);
        AddPicture(m_Atoms, m_Settings, report);
        const std::string sPage = MakeReportPage(report);
        for (std::size_t u = 0; u < sPage.size(); u += c_uPieceBytes)
        {
            file.Write(std::string_view(sPage).substr(u, c_uPieceBytes));
        }
    }
    catch (const std::bad_alloc&)
    {
        throw CWriteError(*m_Options.report + ": cannot be written: there is not enough memory for the report");
    }
    file.Commit();
}
