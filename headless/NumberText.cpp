#include "headless/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace
{

constexpr std::size_t c_uMaxFloatChars = 32;  // the shortest form of a float has at most 15
constexpr std::size_t c_uMaxFixedChars = 400; // the largest double has 309 digits before the dot
constexpr std::size_t c_uMaxQuotedChars = 40; // enough to find the text in the file
constexpr unsigned char c_uFirstPrintable = ' ';
constexpr unsigned char c_uDelete = 0x7F;

bool IsControl(char character)
{
    const auto uCode = static_cast<unsigned char>(character);
    return uCode < c_uFirstPrintable || uCode == c_uDelete;
}

} // namespace

void AppendFloat(std::string& sText, float value)
{
    std::array<char, c_uMaxFloatChars> buffer{};
    const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    sText.append(buffer.data(), result.ptr);
}

std::string TextOfFixed(double value, int decimals)
{
    std::array<char, c_uMaxFixedChars> buffer{};
    const std::to_chars_result result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
    return {buffer.data(), result.ptr};
}

std::optional<std::uint64_t> ParseWholeNumber(std::string_view sText)
{
    std::uint64_t uValue = 0;
    const char* const pEnd = sText.data() + sText.size();
    const std::from_chars_result result = std::from_chars(sText.data(), pEnd, uValue);
    if (result.ec != std::errc() || result.ptr != pEnd)
    {
        return std::nullopt;
    }
    return uValue;
}

std::string Quote(std::string_view sText)
{
    std::string sQuoted = "'";
    for (const char character : sText.substr(0, c_uMaxQuotedChars))
    {
        sQuoted += IsControl(character) ? '?' : character;
    }
    return sQuoted + (sText.size() > c_uMaxQuotedChars ? "...'" : "'");
}

std::string ParseFiniteFloat(std::string_view sText, float& value)
{
    if (sText.empty())
    {
        return "the number is missing";
    }
    const char* const pEnd = sText.data() + sText.size();
    float parsed = 0;
    const std::from_chars_result result = std::from_chars(sText.data(), pEnd, parsed);
    if (result.ec == std::errc::invalid_argument || result.ptr != pEnd)
    {
        return Quote(sText) + " is no number";
    }
    if (result.ec != std::errc())
    {
        return Quote(sText) + " does not fit a 32-bit float";
    }
    if (!std::isfinite(parsed))
    {
        return Quote(sText) + " is not finite";
    }
    value = parsed;
    return {};
}
