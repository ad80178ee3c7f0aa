#include "headless/report/PageText.h"

#include "headless/console/NumberText.h"

#include <cstdint>

std::string EscapeHtml(std::string_view sText)
{
    std::string sEscaped;
    for (const char letter : EscapeUnprintable(sText))
    {
        switch (letter)
        {
        case '&':
            sEscaped += "&amp;";
            break;
        case '<':
            sEscaped += "&lt;";
            break;
        case '>':
            sEscaped += "&gt;";
            break;
        case '"':
            sEscaped += "&quot;";
            break;
        case '\'':
            sEscaped += "&#39;";
            break;
        default:
            sEscaped += letter;
        }
    }
    return sEscaped;
}

std::string EncodeBase64(std::string_view sBytes)
{
    constexpr std::string_view c_sDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    constexpr std::size_t c_uGroup = 3; // bytes that make four digits
    constexpr unsigned c_uByteBits = 8;
    constexpr unsigned c_uDigitBits = 6;
    constexpr std::uint32_t c_uDigitMask = 0x3F;
    std::string sDigits;
    sDigits.reserve((sBytes.size() + 2) / c_uGroup * (c_uGroup + 1));
    for (std::size_t u = 0; u < sBytes.size(); u += c_uGroup)
    {
        const std::string_view sGroup = sBytes.substr(u, c_uGroup);
        std::uint32_t uBits = 0;
        for (std::size_t v = 0; v < c_uGroup; ++v)
        {
            uBits = (uBits << c_uByteBits) | (v < sGroup.size() ? static_cast<std::uint8_t>(sGroup[v]) : 0U);
        }
        for (std::size_t v = 0; v <= c_uGroup; ++v)
        {
            const std::uint32_t uDigit = (uBits >> (c_uDigitBits * (c_uGroup - v))) & c_uDigitMask;
            sDigits += v <= sGroup.size() ? c_sDigits[uDigit] : '=';
        }
    }
    return sDigits;
}

std::string FillTemplate(std::string_view sTemplate, const std::map<std::string, std::string>& texts)
{
    constexpr std::string_view c_sBegin = "{{";
    constexpr std::string_view c_sEnd = "}}";
    std::string sFilled;
    for (std::size_t u = sTemplate.find(c_sBegin); u != std::string_view::npos; u = sTemplate.find(c_sBegin))
    {
        sFilled += sTemplate.substr(0, u);
        sTemplate.remove_prefix(u + c_sBegin.size());
        const std::size_t uEnd = sTemplate.find(c_sEnd);
        sFilled += texts.at(std::string(sTemplate.substr(0, uEnd)));
        sTemplate.remove_prefix(uEnd + c_sEnd.size());
    }
    return sFilled.append(sTemplate);
}
