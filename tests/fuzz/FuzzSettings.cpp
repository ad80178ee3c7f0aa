#include "classes/core/CWString.h"
#include "headless/console/HeadlessError.h"
#include "headless/options/RunSettings.h"
#include "settings/CIniText.h"
#include "settings/FactorRules.h"
#include "settings/SettingRows.h"
#include "settings/SettingsFile.h"
#include "tests/fuzz/FuzzTarget.h"

#include <cwchar>
#include <cwctype>
#include <optional>
#include <string>
#include <string_view>

namespace
{

void CheckSettings(const CSettings& settings)
{
    for (const CSettingRow& row : c_SettingRows)
    {
        const std::int64_t number = GetNumber(row, settings);
        Require(number >= row.range.low && number <= row.range.high, "a number out of range is accepted");
    }
    Require(settings.minRadius <= settings.maxRadius, "radii out of order are accepted");
    CFactorValues values{};
    Require(InterpretFactors(settings.eMode, settings.factors, settings.atoms, values), "invalid factors are accepted");
}

std::string ToNarrow(const CWString& sText)
{
    std::string sNarrow;
    for (const wchar_t c : sText.Get())
    {
        Require(c > 0 && c < 128, "an accepted factor is not a number");
        sNarrow += static_cast<char>(c);
    }
    return sNarrow;
}

// The settings file for these settings, as a user would write it.
std::string ComposeFile(const CSettings& settings)
{
    std::string sFile = "[Settings]\r\n";
    for (const CSettingRow& row : c_SettingRows)
    {
        sFile.append(ToNarrow(row.sFileKey)).append("=");
        if (row.eType == EnumSettingType::Factor)
        {
            // The quotation marks keep blanks around a number.
            sFile.append("\"").append(ToNarrow(GetFactorText(row, settings))).append("\"\r\n");
        }
        else
        {
            sFile.append(std::to_string(GetNumber(row, settings))).append("\r\n");
        }
    }
    return sFile;
}

void CheckRoundTrip(const CSettings& settings)
{
    const CIniText file(ComposeFile(settings));
    const CSettings again = ResolveSettings(COptions(), "composed", &file);
    for (const CSettingRow& row : c_SettingRows)
    {
        Require(GetNumber(row, again) == GetNumber(row, settings), "a number has changed");
        Require(GetFactorText(row, again) == GetFactorText(row, settings), "a factor has changed");
    }
}

std::wstring ToUpper(std::wstring sText)
{
    for (wchar_t& c : sText)
    {
        c = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(c)));
    }
    return sText;
}

void CheckNumber(const CIniText& file, const wchar_t* sKey, const std::wstring& sValue)
{
    constexpr std::size_t c_uMostPlainDigits = 9;
    constexpr int c_iDefault = 77;
    const std::int32_t number = file.GetInt(SettingsFile::c_sSection, sKey, c_iDefault);
    Require(!sValue.empty() || number == c_iDefault, "an empty value is not the default");
    const bool bDigits = sValue.find_first_not_of(L"0123456789") == std::wstring::npos;
    if (bDigits && !sValue.empty() && sValue.size() <= c_uMostPlainDigits)
    {
        constexpr int c_iDecimal = 10;
        Require(number == std::wcstol(sValue.c_str(), nullptr, c_iDecimal), "a whole number has the wrong value");
    }
    const bool bSpeed = (static_cast<unsigned>(number) % 256) > 0;
    CSettings settings;
    SetNumber(GetSettingRow(EnumSetting::ColourMode), settings, number);
    Require((settings.eMode == EnumAtomColourMode::Speed) == bSpeed, "a number gives the wrong mode");
}

// Checks the properties of every key in every text.
void CheckLookUps(const CIniText& file)
{
    constexpr std::size_t c_uAll = 1'000'000;
    constexpr std::size_t c_uFew = SettingsFile::c_uMostTextCharacters;
    for (const CSettingRow& row : c_SettingRows)
    {
        const wchar_t* const sKey = row.sFileKey;
        const std::wstring sValue = file.GetString(SettingsFile::c_sSection, sKey, L"", c_uAll);
        Require(file.GetString(SettingsFile::c_sSection, sKey, L"", c_uFew) == sValue.substr(0, c_uFew),
                "a long value is not truncated");
        Require(file.GetString(ToUpper(SettingsFile::c_sSection), ToUpper(sKey), L"", c_uAll) == sValue,
                "a name is compared with regard to case");
        Require(sValue.find(L'\n') == std::wstring::npos, "a value continues in the next line");
        const bool bDefault = file.GetString(SettingsFile::c_sSection, sKey, L"?", c_uAll) != sValue;
        Require(bDefault == (file.Find(SettingsFile::c_sSection, sKey) == nullptr), "the default replaces a value");
        CheckNumber(file, sKey, sValue);
    }
}

std::optional<CSettings> Resolve(const CIniText& file, const COptions& options)
{
    try
    {
        return ResolveSettings(options, "fuzzed", &file);
    }
    catch (const CHeadlessError&)
    {
        // Most inputs of a fuzzer are refused, which is correct.
        return std::nullopt;
    }
}

void CheckResolved(const CIniText& file, const COptions& options)
{
    const std::optional<CSettings> settings = Resolve(file, options);
    if (settings)
    {
        CheckSettings(*settings);
        CheckRoundTrip(*settings);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    const CIniText file(std::string_view(reinterpret_cast<const char*>(pBytes), uCount));
    CheckLookUps(file);
    COptions options;
    CheckResolved(file, options);
    options.colourMode = EnumAtomColourMode::Fixed;
    CheckResolved(file, options);
    return 0;
}
