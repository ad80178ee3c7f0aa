#include "bench/ReplayPicture.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>

namespace
{

constexpr int c_iWidth = 480;
constexpr int c_iHeight = 360;
constexpr int c_iMargin = 50;
constexpr int c_iBottom = c_iHeight - c_iMargin;
constexpr double c_dDoubling = 90; // pixels per factor of two across
constexpr double c_dRise = 65;     // and upwards

std::string Format(const char* sFormat, double a, double b = 0)
{
    char text[64];
    const int length = std::snprintf(text, sizeof text, sFormat, a, b);
    return {text, static_cast<std::size_t>(length)};
}

std::string GetPoint(int threads, double gain)
{
    return Format("%.1f,%.1f ", c_iMargin + c_dDoubling * std::log2(threads), c_iBottom - c_dRise * std::log2(gain));
}

std::string GetText(double x, double y, const std::string& sText)
{
    return "<text " + Format("x=\"%.1f\" y=\"%.1f\"", x, y) + " text-anchor=\"middle\">" + sText + "</text>\n";
}

std::string GetLine(const std::string& sPoints, const char* sColour, const char* sDash)
{
    return "<polyline points=\"" + sPoints + "\" fill=\"none\" stroke=\"" + sColour + "\" stroke-width=\"2\"" + sDash +
           "/>\n";
}

} // namespace

bool WriteReplayPicture(const std::vector<CReplayRow>& rows, const char* sPath)
{
    std::string sIdeal;
    std::string sReplayed;
    std::string sTexts = GetText(c_iWidth / 2.0, c_iHeight - 10, "threads") +
                         GetText(c_iWidth / 2.0, 20, "a million atoms: gain over one thread, replayed") +
                         GetText(c_iWidth / 2.0, 38, "(dashed: ideal)");
    for (const CReplayRow& row : rows)
    {
        const double gain = rows.front().milliseconds / row.milliseconds;
        sIdeal += GetPoint(row.threads, row.threads);
        sReplayed += GetPoint(row.threads, gain);
        const double x = c_iMargin + c_dDoubling * std::log2(row.threads);
        sTexts += GetText(x, c_iBottom + 20, std::to_string(row.threads));
        sTexts += GetText(x + 22, c_iBottom - c_dRise * std::log2(gain) + 16, Format("%.1f", gain));
    }
    std::ofstream file(sPath, std::ios::binary);
    file << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << c_iWidth << "\" height=\"" << c_iHeight
         << "\" font-family=\"sans-serif\" font-size=\"13\">\n<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
         << GetLine(sIdeal, "#888888", " stroke-dasharray=\"5 4\"") << GetLine(sReplayed, "#0060c0", "") << sTexts
         << "</svg>\n";
    file.close();
    return !file.fail();
}
