#include "headless/console/NumberText.h"

#include "classes/core/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace
{

constexpr std::size_t c_uMaxFloatChars = 32;  // the shortest form of a float has at most 15, that of a double 24
constexpr std::size_t c_uMaxFixedChars = 400; // the largest double has 309 digits before the dot
constexpr std::size_t c_uMaxQuotedChars = 40; // enough to find the text in the file
constexpr char32_t c_uReplacement = 0xFFFD;   // what an invalid byte becomes

struct CCodeRange
{
    char32_t uFirst;
    char32_t uLast;
};

// Control characters, line and paragraph separators, marks of direction.
constexpr std::array<CCodeRange, 5> c_Unprintable = {
    {{0x00, 0x1F}, {0x7F, 0x9F}, {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}}};

bool IsPrintable(char32_t uCode)
{
    return std::none_of(c_Unprintable.begin(), c_Unprintable.end(),
                        [uCode](const CCodeRange& range) { return uCode >= range.uFirst && uCode <= range.uLast; });
}

template<class T>
void AppendShortest(std::string& sText, T value)
{
    std::array<char, c_uMaxFloatChars> buffer{};
    const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    sText.append(buffer.data(), result.ptr);
}

} // namespace

void AppendFloat(std::string& sText, float value)
{
    AppendShortest(sText, value);
}

void AppendDouble(std::string& sText, double value)
{
    AppendShortest(sText, value);
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

std::string EscapeUnprintable(std::string_view sText)
{
    constexpr const char* c_sDigits = "0123456789ABCDEF";
    constexpr unsigned c_uDigitBits = 4;
    constexpr unsigned c_uDigitMask = 0xF;
    std::string sEscaped;
    while (!sText.empty())
    {
        const std::string_view sRest = sText;
        const char32_t uCode = TakeFromUtf8(sText);
        const std::string_view sBytes = sRest.substr(0, sRest.size() - sText.size());
        const bool bValid = uCode != c_uReplacement || sBytes.size() > 1;
        if (bValid && IsPrintable(uCode))
        {
            sEscaped += sBytes;
            continue;
        }
        for (const char byte : sBytes)
        {
            const auto uByte = static_cast<unsigned char>(byte);
            sEscaped.append("\\x").append(1, c_sDigits[uByte >> c_uDigitBits]);
            sEscaped += c_sDigits[uByte & c_uDigitMask];
        }
    }
    return sEscaped;
}

std::string Quote(std::string_view sText)
{
    constexpr unsigned c_uContinuationMask = 0xC0;
    constexpr unsigned c_uContinuation = 0x80;
    std::size_t uLength = std::min(sText.size(), c_uMaxQuotedChars);
    // Not within a letter.
    while (uLength > 0 && uLength < sText.size() &&
           (static_cast<unsigned char>(sText[uLength]) & c_uContinuationMask) == c_uContinuation)
    {
        --uLength;
    }
    std::string sQuoted(1, '\'');
    sQuoted += EscapeUnprintable(sText.substr(0, uLength));
    sQuoted += uLength < sText.size() ? "...'" : "'";
    return sQuoted;
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
