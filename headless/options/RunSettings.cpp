#include "headless/options/RunSettings.h"

#include "classes/core/Utf8.h"
#include "headless/console/HeadlessError.h"
#include "headless/console/NumberText.h"
#include "headless/files/InputFile.h"
#include "headless/options/CSettingsReader.h"
#include "headless/options/SettingsFileCheck.h"
#include "settings/FactorRules.h"

#include <string_view>

namespace
{

// A settings file has a few hundred bytes; a much larger file is not a settings file.
constexpr std::size_t c_uMaxSettingsBytes = 1U << 20U;

template<class T, class U>
bool Take(const std::optional<T>& option, U& target)
{
    if (option)
    {
        target = static_cast<U>(*option);
    }
    return option.has_value();
}

template<class T>
bool TakeElement(const std::optional<T>& option, std::size_t uClass, T& target)
{
    if (option)
    {
        target[uClass] = (*option)[uClass];
    }
    return option.has_value();
}

// False if the command line does not give the setting.
bool TakeOption(const COptions& options, EnumSetting eSetting, CSettings& settings)
{
    switch (eSetting)
    {
    case EnumSetting::WorldWidth:
        return Take(options.width, settings.world.cx);
    case EnumSetting::WorldHeight:
        return Take(options.height, settings.world.cy);
    case EnumSetting::BackgroundColour:
        return Take(options.background, settings.background);
    case EnumSetting::TotalAtoms:
        return Take(options.atoms, settings.atoms);
    case EnumSetting::MinRadius:
        return Take(options.minRadius, settings.minRadius);
    case EnumSetting::MaxRadius:
        return Take(options.maxRadius, settings.maxRadius);
    case EnumSetting::ColourMode:
        return Take(options.colourMode, settings.eMode);
    case EnumSetting::Colour1:
        return TakeElement(options.colours, 0, settings.colours);
    case EnumSetting::Colour2:
        return TakeElement(options.colours, 1, settings.colours);
    case EnumSetting::Colour3:
        return TakeElement(options.colours, 2, settings.colours);
    case EnumSetting::Factor1:
        return TakeElement(options.factors, 0, settings.factors);
    case EnumSetting::Factor2:
        return TakeElement(options.factors, 1, settings.factors);
    case EnumSetting::Factor3:
        return TakeElement(options.factors, 2, settings.factors);
    }
    return false;
}

// Resolves the settings row by row. The first error ends it.
class CResolver
{
public:
    CResolver(const COptions& options, const CSettingsReader& reader, CSettings& settings)
        : m_Options(options), m_Reader(reader), m_Settings(settings)
    {
    }

    void Resolve(EnumSetting eSetting) const
    {
        if (!TakeOption(m_Options, eSetting, m_Settings))
        {
            m_Reader.Read(GetSettingRow(eSetting), m_Settings);
        }
    }

    // All settings of a type, except the background, which is resolved by name.
    void ResolveAll(EnumSettingType eType) const
    {
        for (const CSettingRow& row : c_SettingRows)
        {
            if (row.eType == eType && row.eSetting != EnumSetting::BackgroundColour)
            {
                Resolve(row.eSetting);
            }
        }
    }

private:
    const COptions& m_Options;
    const CSettingsReader& m_Reader;
    CSettings& m_Settings;
};

// The default size would be that of another world than the one that the state was saved in.
void CheckWorldOfState(const COptions& options, const CSettingsReader& reader)
{
    const auto check = [&reader](bool bGiven, EnumSetting eSetting, const std::string& sName) {
        const CSettingRow& row = GetSettingRow(eSetting);
        if (!bGiven && !reader.Has(row))
        {
            throw CUsageError("--load-state: a state does not hold the size of its world; the " + sName +
                              " must be given, by --" + sName + " or as " + Utf8FromWide(row.sFileKey) +
                              " of --settings");
        }
    };
    if (options.loadState)
    {
        check(options.width.has_value(), EnumSetting::WorldWidth, "width");
        check(options.height.has_value(), EnumSetting::WorldHeight, "height");
    }
}

void CheckRadii(const COptions& options, const CSettingsReader& reader, const CSettings& settings)
{
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
    reader.Fail(GetSettingRow(EnumSetting::MinRadius), sWhat);
}

std::string DescribeError(const CFactorError& error, const CFactors& factors)
{
    const std::string sFactor = "factor " + std::to_string(error.uFactor + 1) + ", " +
                                Quote(Utf8FromWide(factors[error.uFactor].GetText().Get())) + ", ";
    switch (error.eError)
    {
    case EnumFactorError::Invalid:
        return sFactor + "is not allowed; allowed is " + c_sAllowedFactor;
    case EnumFactorError::PercentageInSpeedMode:
        return sFactor + "is a percentage, which is allowed in fixed mode only";
    case EnumFactorError::NotExactlyTwoSet:
        return "exactly two of the three factors must be given; the atoms that are left over take the third colour";
    }
    return sFactor;
}

void CheckFactors(bool bFromFile, const CSettingsReader& reader, const CSettings& settings)
{
    const auto fail = [&](std::size_t uFactor, const std::string& sWhat) {
        if (bFromFile)
        {
            reader.Fail(GetSettingRow(c_FactorSettings[uFactor]), sWhat);
        }
        throw CUsageError("--factors: " + sWhat);
    };
    const std::vector<CFactorError> errors = CheckFactors(settings.factors, settings.eMode);
    if (!errors.empty())
    {
        fail(errors.front().uFactor, DescribeError(errors.front(), settings.factors));
    }
    CFactorValues values{};
    if (!InterpretFactors(settings.eMode, settings.factors, settings.atoms, values))
    {
        fail(0, "in speed mode factors 1 and 3 must be given, and factor 2 must be empty");
    }
}

// A start point without room for the largest atom is refused: moving it would change the experiment.
void CheckStartPoint(const COptions& options, const CSettings& settings)
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

CSettings ResolveSettings(const COptions& options, const std::string& sFile, const CIniText* pFile)
{
    if (pFile != nullptr)
    {
        CheckSettingsFile(sFile, *pFile);
    }
    CSettings settings;
    const CSettingsReader reader(sFile, pFile);
    CheckWorldOfState(options, reader);
    const CResolver resolver(options, reader, settings);
    resolver.ResolveAll(EnumSettingType::Length);
    {
        // A loaded state has its own atoms and radii: those of the file are ignored.
        const CSettingsReader population(sFile, options.loadState ? nullptr : pFile);
        const CResolver populationResolver(options, population, settings);
        populationResolver.ResolveAll(EnumSettingType::Count);
        populationResolver.ResolveAll(EnumSettingType::Radius);
        CheckRadii(options, population, settings);
    }
    resolver.ResolveAll(EnumSettingType::ColourMode);
    resolver.ResolveAll(EnumSettingType::Colour);
    resolver.Resolve(EnumSetting::BackgroundColour);
    resolver.ResolveAll(EnumSettingType::Factor);
    const bool bFromFile = pFile != nullptr && !options.factors;
    if (!bFromFile && !options.factors && settings.eMode == EnumAtomColourMode::Fixed)
    {
        // The defaults are three percentages that add up to 100 %. One of them must be left out: it becomes the
        // remainder.
        settings.factors.back() = CFactor();
    }
    CheckFactors(bFromFile, reader, settings);
    CheckStartPoint(options, settings);
    return settings;
}

CSettings ResolveSettings(const COptions& options)
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
