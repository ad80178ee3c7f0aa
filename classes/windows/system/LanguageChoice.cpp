#include "classes/windows/system/LanguageChoice.h"

#include "classes/core/CLibrarySettings.h"
#include "classes/core/EnvironmentText.h"

#include <optional>
#include <string>
#include <string_view>

namespace
{
constexpr unsigned c_uLargestIndex = 255;

std::optional<unsigned char> ReadIndex(std::wstring_view sText)
{
    constexpr unsigned c_uDecimal = 10;
    unsigned uValue = 0;
    for (const wchar_t c : sText)
    {
        if (c < L'0' || c > L'9')
        {
            return std::nullopt;
        }
        uValue = uValue * c_uDecimal + static_cast<unsigned>(c - L'0');
        if (uValue > c_uLargestIndex)
        {
            return std::nullopt;
        }
    }
    return sText.empty() ? std::nullopt : std::optional(static_cast<unsigned char>(uValue));
}

std::optional<unsigned char> ReadEnvironment(const char* sVariable)
{
    const std::optional<std::wstring> sValue =
        sVariable != nullptr ? GetEnvironmentText(sVariable) : std::optional<std::wstring>();
    return sValue ? ReadIndex(*sValue) : std::nullopt;
}

std::optional<unsigned char> ReadRegistry(HKEY hRoot, const wchar_t* sName)
{
    if (hRoot == nullptr || sName == nullptr || *sName == L'\0')
    {
        return std::nullopt;
    }
    const std::wstring sKey = std::wstring(L"Software\\") + sName;
    DWORD uValue = 0;
    DWORD uSize = sizeof(uValue);
    const LSTATUS status = RegGetValueW(hRoot, sKey.c_str(), L"Language", RRF_RT_REG_DWORD, nullptr, &uValue, &uSize);
    if (status != ERROR_SUCCESS || uValue > c_uLargestIndex)
    {
        return std::nullopt;
    }
    return static_cast<unsigned char>(uValue);
}
} // namespace

unsigned char ChooseLanguage(HKEY hRoot, const wchar_t* sName, unsigned char byDefault)
{
    if (const std::optional<unsigned char> index = ReadEnvironment(GetLibrarySettings().sLanguageVariable))
    {
        return *index;
    }
    return ReadRegistry(hRoot, sName).value_or(byDefault);
}
