#include "classes/core/Utf8.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace
{

constexpr char32_t c_uReplacement = 0xFFFD;
constexpr char32_t c_uLastCodePoint = 0x10FFFF;
constexpr char32_t c_uFirstSurrogate = 0xD800;
constexpr char32_t c_uFirstLowSurrogate = 0xDC00;
constexpr char32_t c_uLastSurrogate = 0xDFFF;
constexpr char32_t c_uFirstBeyond16Bits = 0x10000;
constexpr unsigned c_uSurrogateBits = 10;
constexpr char32_t c_uSurrogateMask = 0x3FF;
constexpr unsigned c_uContinuationBits = 6;
constexpr char32_t c_uContinuationMask = 0x3F;
constexpr char32_t c_uContinuationTag = 0x80;
constexpr char32_t c_uTagMask = 0xC0;

// A UTF-8 sequence of a given length: its code points start at uFirst, its lead byte is uLead under uLeadMask.
struct CSequence
{
    char32_t uFirst;
    char32_t uLead;
    char32_t uLeadMask;
};

constexpr std::array<CSequence, 4> c_Sequences{
    {{0x0, 0x00, 0x80}, {0x80, 0xC0, 0xE0}, {0x800, 0xE0, 0xF0}, {0x10000, 0xF0, 0xF8}}};

bool IsSurrogate(char32_t u)
{
    return u >= c_uFirstSurrogate && u <= c_uLastSurrogate;
}

void AppendWide(std::wstring& sText, char32_t uCode)
{
    if (sizeof(wchar_t) > sizeof(char16_t) || uCode < c_uFirstBeyond16Bits)
    {
        sText += static_cast<wchar_t>(uCode);
        return;
    }
    const char32_t uOffset = uCode - c_uFirstBeyond16Bits;
    sText += static_cast<wchar_t>(c_uFirstSurrogate + (uOffset >> c_uSurrogateBits));
    sText += static_cast<wchar_t>(c_uFirstLowSurrogate + (uOffset & c_uSurrogateMask));
}

// Removes one code point from the front of sText; a lone surrogate or an invalid code point gives U+FFFD.
char32_t TakeFromWide(std::wstring_view& sText)
{
    const char32_t uFirst = static_cast<char32_t>(sText[0]);
    sText.remove_prefix(1);
    if (!IsSurrogate(uFirst))
    {
        return uFirst <= c_uLastCodePoint ? uFirst : c_uReplacement;
    }
    const char32_t uSecond = sText.empty() ? 0 : static_cast<char32_t>(sText[0]);
    if (uFirst >= c_uFirstLowSurrogate || uSecond < c_uFirstLowSurrogate || !IsSurrogate(uSecond))
    {
        return c_uReplacement;
    }
    sText.remove_prefix(1);
    return c_uFirstBeyond16Bits + ((uFirst & c_uSurrogateMask) << c_uSurrogateBits) + (uSecond & c_uSurrogateMask);
}

void AppendUtf8(std::string& sText, char32_t uCode)
{
    std::size_t uLength = c_Sequences.size();
    while (uCode < c_Sequences[uLength - 1].uFirst)
    {
        --uLength;
    }
    unsigned uShift = static_cast<unsigned>(uLength - 1) * c_uContinuationBits;
    sText += static_cast<char>(c_Sequences[uLength - 1].uLead | (uCode >> uShift));
    while (uShift > 0)
    {
        uShift -= c_uContinuationBits;
        sText += static_cast<char>(c_uContinuationTag | ((uCode >> uShift) & c_uContinuationMask));
    }
}

} // namespace

char32_t TakeFromUtf8(std::string_view& sText)
{
    const auto byteAt = [&sText](std::size_t u) { return static_cast<char32_t>(static_cast<std::uint8_t>(sText[u])); };
    char32_t uResult = c_uReplacement;
    std::size_t uTaken = 1;
    for (std::size_t uLength = 1; uLength <= c_Sequences.size(); ++uLength)
    {
        const CSequence& sequence = c_Sequences[uLength - 1];
        if ((byteAt(0) & sequence.uLeadMask) != sequence.uLead || sText.size() < uLength)
        {
            continue;
        }
        char32_t uCode = byteAt(0) & ~sequence.uLeadMask;
        bool bWhole = true;
        for (std::size_t u = 1; u < uLength; ++u)
        {
            bWhole = bWhole && (byteAt(u) & c_uTagMask) == c_uContinuationTag;
            uCode = (uCode << c_uContinuationBits) | (byteAt(u) & c_uContinuationMask);
        }
        if (bWhole && uCode >= sequence.uFirst && uCode <= c_uLastCodePoint && !IsSurrogate(uCode))
        {
            uResult = uCode;
            uTaken = uLength;
        }
    }
    sText.remove_prefix(uTaken);
    return uResult;
}

std::wstring WideFromUtf8(std::string_view sText)
{
    std::wstring sWide;
    sWide.reserve(sText.size());
    while (!sText.empty())
    {
        AppendWide(sWide, TakeFromUtf8(sText));
    }
    return sWide;
}

std::string Utf8FromWide(std::wstring_view sText)
{
    std::string sNarrow;
    sNarrow.reserve(sText.size());
    while (!sText.empty())
    {
        AppendUtf8(sNarrow, TakeFromWide(sText));
    }
    return sNarrow;
}
