#include "settings/CIniText.h"

#include "classes/core/CWString.h"
#include "classes/core/Utf8.h"
#include "settings/SettingsFile.h"

#include <algorithm>

namespace
{

constexpr std::wstring_view c_sBlanks = L" \t\r\v\f\x1A";
constexpr std::string_view c_sUtf16LittleEndianMark = "\xFF\xFE";
constexpr std::string_view c_sUtf16BigEndianMark = "\xFE\xFF";
constexpr std::string_view c_sUtf8Mark = "\xEF\xBB\xBF";
constexpr unsigned c_uByteBits = 8;
constexpr std::size_t c_uMaxNumberLength = 29; // a number is read from at most so many characters of a value
constexpr std::uint32_t c_uDecimal = 10;
constexpr std::uint32_t c_uHexadecimal = 16;
constexpr std::uint32_t c_uOctal = 8;
constexpr std::uint32_t c_uBinary = 2;

// uHigh: the place of the more significant byte of each pair. A last byte without a partner is a character of its own.
std::wstring DecodeUtf16(std::string_view sBytes, std::size_t uHigh)
{
    std::wstring sText;
    const auto byteAt = [sBytes](std::size_t u) {
        return u < sBytes.size() ? static_cast<unsigned>(static_cast<unsigned char>(sBytes[u])) : 0U;
    };
    for (std::size_t u = 0; u < sBytes.size(); u += 2)
    {
        sText += static_cast<wchar_t>((byteAt(u + uHigh) << c_uByteBits) | byteAt(u + 1 - uHigh));
    }
    return sText;
}

std::wstring Decode(std::string_view sBytes)
{
    if (sBytes.starts_with(c_sUtf16LittleEndianMark))
    {
        return DecodeUtf16(sBytes.substr(c_sUtf16LittleEndianMark.size()), 1);
    }
    if (sBytes.starts_with(c_sUtf16BigEndianMark))
    {
        return DecodeUtf16(sBytes.substr(c_sUtf16BigEndianMark.size()), 0);
    }
    if (sBytes.starts_with(c_sUtf8Mark))
    {
        return WideFromUtf8(sBytes.substr(c_sUtf8Mark.size()));
    }
    std::wstring sText;
    for (const char byte : sBytes)
    {
        sText += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    }
    return sText;
}

// Removes the first line with its end, which is CR, LF or the two together, and returns it without the end.
std::wstring_view TakeLine(std::wstring_view& sText)
{
    const std::size_t uEnd = std::min(sText.find_first_of(L"\r\n"), sText.size());
    const std::wstring_view sLine = sText.substr(0, uEnd);
    const std::size_t uEndLength = sText.substr(uEnd).starts_with(L"\r\n") ? 2 : 1;
    sText.remove_prefix(std::min(uEnd + uEndLength, sText.size()));
    return sLine;
}

std::wstring_view Trim(std::wstring_view sText)
{
    const std::size_t uFirst = sText.find_first_not_of(c_sBlanks);
    if (uFirst == std::wstring_view::npos)
    {
        return {};
    }
    return sText.substr(uFirst, sText.find_last_not_of(c_sBlanks) - uFirst + 1);
}

std::wstring_view DropQuotes(std::wstring_view sText)
{
    const bool bQuoted =
        sText.size() > 1 && (sText.front() == L'"' || sText.front() == L'\'') && sText.front() == sText.back();
    return bQuoted ? sText.substr(1, sText.size() - 2) : sText;
}

// A NUL ends a name or a value.
std::wstring_view CutAtNul(std::wstring_view sText)
{
    return sText.substr(0, sText.find(L'\0'));
}

bool AreSameNames(std::wstring_view sFirst, std::wstring_view sSecond)
{
    return CWString(sFirst).CompareNoCase(sSecond) == 0;
}

// Value of a digit; c_uHexadecimal for any other character.
std::uint32_t GetDigit(wchar_t character)
{
    if (character >= L'0' && character <= L'9')
    {
        return static_cast<std::uint32_t>(character - L'0');
    }
    if (character >= L'a' && character <= L'f')
    {
        return c_uDecimal + static_cast<std::uint32_t>(character - L'a');
    }
    if (character >= L'A' && character <= L'F')
    {
        return c_uDecimal + static_cast<std::uint32_t>(character - L'A');
    }
    return c_uHexadecimal;
}

std::uint32_t TakeBase(std::wstring_view& sText)
{
    if (sText.size() < 2 || sText[0] != L'0')
    {
        return c_uDecimal;
    }
    std::uint32_t uBase = c_uDecimal;
    switch (sText[1])
    {
    case L'x':
        uBase = c_uHexadecimal;
        break;
    case L'o':
        uBase = c_uOctal;
        break;
    case L'b':
        uBase = c_uBinary;
        break;
    default:
        return c_uDecimal;
    }
    sText.remove_prefix(2);
    return uBase;
}

std::int32_t ParseLeadingNumber(std::wstring_view sText)
{
    const bool bNegative = sText.starts_with(L'-');
    if (bNegative || sText.starts_with(L'+'))
    {
        sText.remove_prefix(1);
    }
    const std::uint32_t uBase = TakeBase(sText);
    std::uint32_t uValue = 0;
    for (const wchar_t character : sText)
    {
        const std::uint32_t uDigit = GetDigit(character);
        if (uDigit >= uBase)
        {
            break;
        }
        uValue = uValue * uBase + uDigit;
    }
    return static_cast<std::int32_t>(bNegative ? 0U - uValue : uValue);
}

} // namespace

CIniText::CIniText(std::string_view sBytes)
{
    // Lines before the first section belong to a section without a name.
    m_Sections.emplace_back();
    const std::wstring sDecoded = Decode(sBytes);
    std::wstring_view sText = sDecoded;
    for (std::uint64_t uLine = 1; !sText.empty(); ++uLine)
    {
        AddLine(Trim(TakeLine(sText)), uLine);
    }
}

void CIniText::AddLine(std::wstring_view sLine, std::uint64_t uLine)
{
    const std::size_t uBracket = sLine.rfind(L']');
    if (sLine.starts_with(L'[') && uBracket != std::wstring_view::npos)
    {
        m_Sections.push_back({std::wstring(CutAtNul(sLine.substr(1, uBracket - 1))), uLine, {}});
        return;
    }
    const std::size_t uEquals = sLine.find(L'=');
    const bool bHasValue = uEquals != std::wstring_view::npos;
    const std::wstring_view sValue = bHasValue ? CutAtNul(Trim(sLine.substr(uEquals + 1))) : std::wstring_view();
    m_Sections.back().entries.push_back(
        {std::wstring(CutAtNul(Trim(sLine.substr(0, uEquals)))), std::wstring(sValue), bHasValue, uLine});
}

const CIniEntry* CIniText::Find(std::wstring_view sSection, std::wstring_view sKey) const
{
    const auto section = std::find_if(m_Sections.begin(), m_Sections.end(), [&](const CIniSection& candidate) {
        return AreSameNames(candidate.name, sSection);
    });
    if (section == m_Sections.end())
    {
        return nullptr;
    }
    const auto entry = std::find_if(section->entries.begin(), section->entries.end(),
                                    [&](const CIniEntry& candidate) { return AreSameNames(candidate.key, sKey); });
    return entry != section->entries.end() && entry->bHasValue ? &*entry : nullptr;
}

std::wstring CIniText::GetString(std::wstring_view sSection, std::wstring_view sKey, std::wstring_view sDefault,
                                 std::size_t uMaxLength) const
{
    const CIniEntry* const pEntry = Find(sSection, sKey);
    const std::wstring_view sValue = pEntry != nullptr ? DropQuotes(pEntry->value) : sDefault;
    return std::wstring(sValue.substr(0, uMaxLength));
}

std::int32_t CIniText::GetInt(std::wstring_view sSection, std::wstring_view sKey, std::int32_t defaultValue) const
{
    const std::wstring sValue = GetString(sSection, sKey, {}, c_uMaxNumberLength);
    return sValue.empty() ? defaultValue : ParseLeadingNumber(Trim(sValue));
}

std::int32_t CIniText::ReadNumber(const wchar_t* sKey, std::int32_t defaultValue) const
{
    return GetInt(SettingsFile::c_sSection, sKey, defaultValue);
}

CWString CIniText::ReadText(const wchar_t* sKey, const wchar_t* sDefault) const
{
    return GetString(SettingsFile::c_sSection, sKey, sDefault, SettingsFile::c_uMostTextCharacters);
}
