#include "app/SettingsRules.h"
#include "classes/core/CWString.h"
#include "headless/CIniText.h"
#include "headless/HeadlessError.h"
#include "headless/RunSettings.h"
#include "simulation/SimulationConstants.h"
#include "tests/fuzz/FuzzTarget.h"

#include <array>
#include <cwchar>
#include <cwctype>
#include <optional>
#include <string>
#include <string_view>

namespace
{

constexpr std::array<const wchar_t*, 13> c_sKeys = {
    L"World_width",          L"World_height",     L"World_background_colour", L"Tot_atoms",
    L"Atoms_min_radius",     L"Atoms_max_radius", L"Atoms_colour_mode",       L"Atom_colour_1",
    L"Atom_colour_1_factor", L"Atom_colour_2",    L"Atom_colour_2_factor",    L"Atom_colour_3",
    L"Atom_colour_3_factor"};

bool IsLength(int length)
{
    return length >= c_iMinWorldLength && length <= c_iMaxWorldLength;
}

void CheckSettings(const CRunSettings& settings)
{
    Require(IsLength(settings.world.cx) && IsLength(settings.world.cy), "a world out of range is accepted");
    Require(settings.atoms >= c_iMinTotalAtoms && settings.atoms <= c_iMaxTotalAtoms, "too many atoms are accepted");
    Require(settings.minRadius >= c_uMinRadius && settings.minRadius <= settings.maxRadius &&
                settings.maxRadius <= c_uMaxRadius,
            "radii out of range are accepted");
    constexpr ColourRef c_crLargest = 0xFFFFFF;
    Require(settings.background <= c_crLargest, "a colour out of range is accepted");
    CColourSettings interpreted{};
    Require(InterpretFactors(settings.eMode, settings.factors, settings.atoms, interpreted),
            "factors without a meaning are accepted");
}

std::string ToNarrow(const CWString& sText)
{
    std::string sNarrow;
    for (const wchar_t c : sText.Get())
    {
        Require(c > 0 && c < 128, "a factor that is accepted is no number");
        sNarrow += static_cast<char>(c);
    }
    return sNarrow;
}

// The file that a user would write for these settings.
std::string ComposeFile(const CRunSettings& settings)
{
    std::string sFile = "[Settings]\r\nWorld_width=" + std::to_string(settings.world.cx) +
                        "\r\nWorld_height=" + std::to_string(settings.world.cy) +
                        "\r\nWorld_background_colour=" + std::to_string(settings.background) +
                        "\r\nTot_atoms=" + std::to_string(settings.atoms) +
                        "\r\nAtoms_min_radius=" + std::to_string(settings.minRadius) +
                        "\r\nAtoms_max_radius=" + std::to_string(settings.maxRadius) + "\r\nAtoms_colour_mode=" +
                        std::to_string(static_cast<int>(settings.eMode == EnumAtomColourMode::Speed)) + "\r\n";
    for (std::size_t u = 0; u < settings.colours.size(); ++u)
    {
        const std::string sKey = "Atom_colour_" + std::to_string(u + 1);
        sFile.append(sKey).append("=").append(std::to_string(settings.colours[u])).append("\r\n");
        // The quotation marks keep blanks that may stand around a number.
        sFile.append(sKey).append("_factor=\"").append(ToNarrow(settings.factors[u])).append("\"\r\n");
    }
    return sFile;
}

void CheckRoundTrip(const CRunSettings& settings)
{
    const CIniText file(ComposeFile(settings));
    const CRunSettings again = ResolveSettings(COptions(), "composed", &file);
    Require(again.world == settings.world && again.atoms == settings.atoms, "the size of the world has changed");
    Require(again.minRadius == settings.minRadius && again.maxRadius == settings.maxRadius, "the radii have changed");
    Require(again.eMode == settings.eMode && again.factors == settings.factors, "the factors have changed");
    Require(again.colours == settings.colours && again.background == settings.background, "the colours have changed");
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
        Require(number == std::wcstol(sValue.c_str(), nullptr, c_iDecimal), "a whole number is read as another one");
    }
    const bool bSpeed = (static_cast<unsigned>(number) % 256) > 0;
    Require((GetColourModeOfSetting(static_cast<unsigned>(number)) == EnumAtomColourMode::Speed) == bSpeed,
            "a number stands for the other mode");
}

// What holds for every key of every text.
void CheckLookUps(const CIniText& file)
{
    constexpr std::size_t c_uAll = 1'000'000;
    constexpr std::size_t c_uFew = SettingsFile::c_uFactorBuffer - 1;
    for (const wchar_t* const sKey : c_sKeys)
    {
        const std::wstring sValue = file.GetString(SettingsFile::c_sSection, sKey, L"", c_uAll);
        Require(file.GetString(SettingsFile::c_sSection, sKey, L"", c_uFew) == sValue.substr(0, c_uFew),
                "a long value is not cut off");
        Require(file.GetString(ToUpper(SettingsFile::c_sSection), ToUpper(sKey), L"", c_uAll) == sValue,
                "a name counts by its case");
        Require(sValue.find(L'\n') == std::wstring::npos, "a value goes on in the next line");
        const bool bDefault = file.GetString(SettingsFile::c_sSection, sKey, L"?", c_uAll) != sValue;
        Require(bDefault == (file.Find(SettingsFile::c_sSection, sKey) == nullptr), "the default stands for a value");
        CheckNumber(file, sKey, sValue);
    }
}

std::optional<CRunSettings> Resolve(const CIniText& file, const COptions& options)
{
    try
    {
        return ResolveSettings(options, "fuzzed", &file);
    }
    catch (const CHeadlessError&)
    {
        // Refusing is right for most of what a fuzzer makes.
        return std::nullopt;
    }
}

void CheckResolved(const CIniText& file, const COptions& options)
{
    const std::optional<CRunSettings> settings = Resolve(file, options);
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
