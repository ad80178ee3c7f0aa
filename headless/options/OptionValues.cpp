#include "headless/options/OptionValues.h"

#include "classes/core/Utf8.h"
#include "headless/console/HeadlessError.h"
#include "headless/console/NumberText.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <system_error>
#include <vector>

namespace
{

constexpr std::size_t c_uColourDigits = 6;
constexpr int c_iHexadecimal = 16;
constexpr std::uint64_t c_uMostDigits = 20; // of a 64-bit number
constexpr unsigned c_uByteBits = 8;
constexpr std::uint64_t c_uLargestCoordinate = std::numeric_limits<int>::max();

[[noreturn]] void Reject(const std::string& sOption, std::string_view sText, const std::string& sAllowed)
{
    throw CUsageError(sOption + ": " + Quote(sText) + " is not allowed; allowed is " + sAllowed);
}

std::uint64_t TakeInRange(const std::string& sOption, const std::string& sText, std::optional<std::uint64_t> uValue,
                          std::uint64_t uLow, std::uint64_t uHigh)
{
    if (!uValue || *uValue < uLow || *uValue > uHigh)
    {
        Reject(sOption, sText, "a whole number from " + std::to_string(uLow) + " to " + std::to_string(uHigh));
    }
    return *uValue;
}

// "2.5e3" becomes "2500". A text that is no such whole number stays as it is.
std::string WithoutExponent(const std::string& sText)
{
    const std::size_t uE = sText.find_first_of("eE");
    const std::string sDigits = sText.substr(0, uE);
    const std::size_t uDot = std::min(sDigits.find('.'), sDigits.size());
    const std::size_t uFraction = sDigits.size() - std::min(uDot + 1, sDigits.size());
    const std::optional<std::uint64_t> uExponent =
        uE == std::string::npos ? std::nullopt : ParseWholeNumber(std::string_view(sText).substr(uE + 1));
    if (!uExponent || *uExponent < uFraction || *uExponent > c_uMostDigits || uDot == 0)
    {
        return sText;
    }
    return sDigits.substr(0, uDot) + sDigits.substr(sDigits.size() - uFraction) +
           std::string(static_cast<std::size_t>(*uExponent) - uFraction, '0');
}

std::vector<std::string_view> SplitAtCommas(std::string_view sText)
{
    std::vector<std::string_view> parts;
    for (std::size_t uComma = sText.find(','); uComma != std::string_view::npos; uComma = sText.find(','))
    {
        parts.push_back(sText.substr(0, uComma));
        sText.remove_prefix(uComma + 1);
    }
    parts.push_back(sText);
    return parts;
}

bool ParseColour(std::string_view sText, ColourRef& colour)
{
    std::uint32_t uValue = 0;
    const char* const pEnd = sText.data() + sText.size();
    const std::from_chars_result result = std::from_chars(sText.data(), pEnd, uValue, c_iHexadecimal);
    if (sText.size() != c_uColourDigits || result.ec != std::errc() || result.ptr != pEnd)
    {
        return false;
    }
    // The text has red first, the number has red in its lowest byte.
    colour = MakeColour(static_cast<std::uint8_t>(uValue >> (2 * c_uByteBits)),
                        static_cast<std::uint8_t>(uValue >> c_uByteBits), static_cast<std::uint8_t>(uValue));
    return true;
}

} // namespace

std::uint64_t ParseNumberOption(const std::string& sOption, const std::string& sText, std::uint64_t uLow,
                                std::uint64_t uHigh)
{
    return TakeInRange(sOption, sText, ParseWholeNumber(sText), uLow, uHigh);
}

std::uint64_t ParseCountOption(const std::string& sOption, const std::string& sText, std::uint64_t uLow,
                               std::uint64_t uHigh)
{
    return TakeInRange(sOption, sText, ParseWholeNumber(WithoutExponent(sText)), uLow, uHigh);
}

CPoint<int> ParsePointOption(const std::string& sOption, const std::string& sText)
{
    const std::vector<std::string_view> parts = SplitAtCommas(sText);
    const std::optional<std::uint64_t> uX = ParseWholeNumber(parts.front());
    const std::optional<std::uint64_t> uY = ParseWholeNumber(parts.back());
    if (parts.size() != 2 || !uX || !uY || std::max(*uX, *uY) > c_uLargestCoordinate)
    {
        Reject(sOption, sText, "X,Y: two whole numbers with a comma");
    }
    return {static_cast<int>(*uX), static_cast<int>(*uY)};
}

std::string TextOfPoint(const CPoint<int>& point)
{
    return std::to_string(point.x) + "," + std::to_string(point.y);
}

ColourRef ParseColourOption(const std::string& sOption, std::string_view sText)
{
    ColourRef colour = 0;
    if (!ParseColour(sText, colour))
    {
        Reject(sOption, sText, "RRGGBB: six hexadecimal digits, red first");
    }
    return colour;
}

CClassColours ParseColoursOption(const std::string& sOption, const std::string& sText)
{
    const std::vector<std::string_view> parts = SplitAtCommas(sText);
    CClassColours colours{};
    bool bRight = parts.size() == colours.size();
    for (std::size_t u = 0; bRight && u < colours.size(); ++u)
    {
        bRight = ParseColour(parts[u], colours[u]);
    }
    if (!bRight)
    {
        Reject(sOption, sText, "RRGGBB,RRGGBB,RRGGBB: three colours of six hexadecimal digits, red first");
    }
    return colours;
}

CFactors ParseFactorsOption(const std::string& sOption, const std::string& sText)
{
    const std::vector<std::string_view> parts = SplitAtCommas(sText);
    CFactors factors;
    if (parts.size() != factors.size())
    {
        Reject(sOption, sText, "A,B,C: three factors with two commas, one of them empty");
    }
    std::transform(parts.begin(), parts.end(), factors.begin(),
                   [](std::string_view sPart) { return CFactor(WideFromUtf8(sPart)); });
    return factors;
}

CMoments ParseMomentsOption(const std::string& sOption, const std::string& sText, std::uint64_t uHigh)
{
    CMoments moments;
    for (const std::string_view sPart : SplitAtCommas(sText))
    {
        if (sPart == "end")
        {
            moments.bEnd = true;
            continue;
        }
        const std::optional<std::uint64_t> uIteration = ParseWholeNumber(WithoutExponent(std::string(sPart)));
        if (!uIteration || *uIteration > uHigh)
        {
            Reject(sOption, sText, "iterations up to " + std::to_string(uHigh) + " and end, with commas: 0,1e3,end");
        }
        moments.iterations.push_back(*uIteration);
    }
    std::sort(moments.iterations.begin(), moments.iterations.end());
    return moments;
}

double ParseSpeedOption(const std::string& sOption, const std::string& sText)
{
    double speed = 0;
    const char* const pEnd = sText.data() + sText.size();
    const std::from_chars_result result = std::from_chars(sText.data(), pEnd, speed);
    const bool bInRange = speed >= c_dLowestSpeed && speed <= c_dHighestSpeed;
    if (result.ec != std::errc() || result.ptr != pEnd || !bInRange)
    {
        Reject(sOption, sText, "a number from 1e-9 to 1e9");
    }
    return speed;
}

EnumAtomColourMode ParseModeOption(const std::string& sOption, const std::string& sText)
{
    if (sText == "speed")
    {
        return EnumAtomColourMode::Speed;
    }
    if (sText != "fixed")
    {
        Reject(sOption, sText, "speed or fixed");
    }
    return EnumAtomColourMode::Fixed;
}

EnumSummaryForm ParseSummaryOption(const std::string& sOption, const std::string& sText)
{
    if (sText == "json")
    {
        return EnumSummaryForm::Json;
    }
    if (sText == "csv")
    {
        return EnumSummaryForm::Csv;
    }
    if (sText != "text")
    {
        Reject(sOption, sText, "json, csv or text");
    }
    return EnumSummaryForm::Text;
}
