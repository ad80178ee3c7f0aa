#include "headless/RunSettings.h"

#include "app/SettingsRules.h"
#include "classes/core/Utf8.h"
#include "headless/CIniText.h"
#include "headless/CSettingsReader.h"
#include "headless/HeadlessError.h"
#include "headless/InputFile.h"
#include "headless/NumberText.h"
#include "simulation/Parameters.h"
#include "simulation/SimulationConstants.h"

#include <algorithm>
#include <string_view>

namespace
{

constexpr std::array<const wchar_t*, c_uColourClassCount> c_sColourKeys = {L"Atom_colour_1", L"Atom_colour_2",
                                                                           L"Atom_colour_3"};
constexpr std::array<const wchar_t*, c_uColourClassCount> c_sFactorKeys = {
    L"Atom_colour_1_factor", L"Atom_colour_2_factor", L"Atom_colour_3_factor"};

// A settings file is a few hundred bytes; anything much larger is something else.
constexpr std::size_t c_uMaxSettingsBytes = 1U << 20U;

int GetNumber(const std::optional<int>& option, const CSettingsReader& reader, const wchar_t* sKey, int defaultValue,
              int low, int high)
{
    return option ? *option : reader.GetNumber(sKey, defaultValue, low, high);
}

void ResolvePopulation(const COptions& options, const CSettingsReader& reader, CRunSettings& settings)
{
    using namespace SettingsFile;
    settings.atoms =
        GetNumber(options.atoms, reader, L"Tot_atoms", c_iDefaultAtoms, c_iMinTotalAtoms, c_iMaxTotalAtoms);
    const auto radius = [&reader](const std::optional<int>& option, const wchar_t* sKey, int defaultRadius) {
        return option ? static_cast<std::uint8_t>(*option)
                      : reader.GetByte(sKey, static_cast<std::uint8_t>(defaultRadius), c_uMinRadius, c_uMaxRadius);
    };
    settings.minRadius = radius(options.minRadius, L"Atoms_min_radius", c_iDefaultMinRadius);
    settings.maxRadius = radius(options.maxRadius, L"Atoms_max_radius", c_iDefaultMaxRadius);
    if (settings.minRadius <= settings.maxRadius)
    {
        return;
    }
    const std::string sWhat = "the smallest radius (" + std::to_string(settings.minRadius) +
                              ") is above the largest (" + std::to_string(settings.maxRadius) + ")";
    if (options.minRadius || options.maxRadius)
    {
        throw CUsageError("--min-radius, --max-radius: " + sWhat);
    }
    reader.Fail(L"Atoms_min_radius", sWhat);
}

// The settings file gives three percentages that make up the whole; one of them must be left for the remainder.
CFactorTexts GetDefaultFactors(EnumAtomColourMode eMode)
{
    const auto& defaults = GetColourDefaults(eMode);
    CFactorTexts factors;
    std::transform(defaults.begin(), defaults.end(), factors.begin(),
                   [](const CColourDefault& item) { return CWString(item.factor); });
    if (eMode == EnumAtomColourMode::Fixed)
    {
        factors.back().Clear();
    }
    return factors;
}

CFactorTexts ReadFactors(const CSettingsReader& reader, EnumAtomColourMode eMode)
{
    const auto& defaults = GetColourDefaults(eMode);
    CFactorTexts factors;
    for (std::size_t u = 0; u < factors.size(); ++u)
    {
        factors[u] = reader.GetFactor(c_sFactorKeys[u], defaults[u].factor);
    }
    if (eMode == EnumAtomColourMode::Speed)
    {
        // The class between the other two needs no factor: whatever stands there is not read.
        factors[1].Clear();
    }
    return factors;
}

struct CFactorError
{
    std::size_t uFactor; // 0..2
    std::string what;
};

std::string DescribeMessage(const CFactorMessage& message, const CFactorTexts& factors)
{
    if (message.factorNumber == 0)
    {
        return "exactly two of the three factors must be given; the atoms that are left over take the third colour";
    }
    const CWString& sText = factors[static_cast<std::size_t>(message.factorNumber) - 1];
    const std::string sFactor =
        "factor " + std::to_string(message.factorNumber) + ", " + Quote(Utf8FromWide(sText.Get())) + ", ";
    if (std::wstring_view(message.key) == L"Colour_factor_n_is_invalid")
    {
        return sFactor + "is not allowed; allowed is a number from 0 on, in fixed mode also a percentage like 12.34%";
    }
    return sFactor + "is a percentage, which is allowed in fixed mode only";
}

std::optional<CFactorError> FindFactorError(const CFactorTexts& factors, EnumAtomColourMode eMode, std::int32_t atoms)
{
    const std::vector<CFactorMessage> messages = CheckFactors(factors, eMode);
    if (!messages.empty())
    {
        const CFactorMessage& message = messages.front();
        return CFactorError{static_cast<std::size_t>(std::max(message.factorNumber, 1)) - 1,
                            DescribeMessage(message, factors)};
    }
    CColourSettings interpreted{};
    if (!InterpretFactors(eMode, factors, atoms, interpreted))
    {
        return CFactorError{0, "in speed mode factors 1 and 3 must be given, and factor 2 must be empty"};
    }
    return std::nullopt;
}

void ResolveColours(const COptions& options, const CSettingsReader& reader, CRunSettings& settings)
{
    const auto uMode = [&reader] { return reader.GetByte(L"Atoms_colour_mode", 1, 0, UINT8_MAX); };
    settings.eMode = options.colourMode ? *options.colourMode : GetColourModeOfSetting(uMode());
    const auto& defaults = GetColourDefaults(settings.eMode);
    for (std::size_t u = 0; u < settings.colours.size(); ++u)
    {
        settings.colours[u] =
            options.colours ? (*options.colours)[u] : reader.GetColour(c_sColourKeys[u], defaults[u].colour);
    }
    settings.background = options.background
                              ? *options.background
                              : reader.GetColour(L"World_background_colour", SettingsFile::c_crDefaultBackground);
    const bool bFromFile = !options.factors && reader.HasFile();
    settings.factors =
        bFromFile ? ReadFactors(reader, settings.eMode) : options.factors.value_or(GetDefaultFactors(settings.eMode));
    const std::optional<CFactorError> error = FindFactorError(settings.factors, settings.eMode, settings.atoms);
    if (error && bFromFile)
    {
        reader.Fail(c_sFactorKeys[error->uFactor], error->what);
    }
    if (error)
    {
        throw CUsageError("--factors: " + error->what);
    }
}

// A start point that had to be moved to make room for the largest atom would be another experiment.
void CheckStartPoint(const COptions& options, const CRunSettings& settings)
{
    if (!options.startAt)
    {
        return;
    }
    const int radius = settings.maxRadius;
    const CPoint<int>& point = *options.startAt;
    const bool bFits = point.x >= radius && point.x <= settings.world.cx - radius && point.y >= radius &&
                       point.y <= settings.world.cy - radius;
    if (!bFits)
    {
        const auto range = [radius](int length) {
            return "from " + std::to_string(radius) + " to " + std::to_string(length - radius);
        };
        throw CUsageError("--start-at: " + std::to_string(point.x) + "," + std::to_string(point.y) +
                          " is not allowed; allowed is X " + range(settings.world.cx) + " and Y " +
                          range(settings.world.cy) + ", where the largest atom fits");
    }
}

} // namespace

CRunSettings ResolveSettings(const COptions& options, const std::string& sFile, const CIniText* pFile)
{
    using namespace SettingsFile;
    const CSettingsReader reader(sFile, pFile);
    CRunSettings settings;
    settings.world.cx =
        GetNumber(options.width, reader, L"World_width", c_iDefaultWorldLength, c_iMinWorldLength, c_iMaxWorldLength);
    settings.world.cy =
        GetNumber(options.height, reader, L"World_height", c_iDefaultWorldLength, c_iMinWorldLength, c_iMaxWorldLength);
    // A loaded state brings its own atoms and radii: what the file says about them does not count.
    ResolvePopulation(options, CSettingsReader(sFile, options.loadState ? nullptr : pFile), settings);
    ResolveColours(options, reader, settings);
    CheckStartPoint(options, settings);
    return settings;
}

CRunSettings ResolveSettings(const COptions& options)
{
    if (!options.settings)
    {
        return ResolveSettings(options, "", nullptr);
    }
    std::ifstream stream = OpenInputFile(*options.settings);
    std::string sBytes(c_uMaxSettingsBytes + 1, '\0');
    stream.read(sBytes.data(), static_cast<std::streamsize>(sBytes.size()));
    sBytes.resize(static_cast<std::size_t>(stream.gcount()));
    if (stream.bad())
    {
        throw CHeadlessError(*options.settings + ": cannot be read");
    }
    if (sBytes.size() > c_uMaxSettingsBytes)
    {
        throw CHeadlessError(*options.settings + ": is longer than a megabyte and no settings file");
    }
    const CIniText file(sBytes);
    return ResolveSettings(options, *options.settings, &file);
}
