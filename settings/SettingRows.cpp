#include "settings/SettingRows.h"

#include "settings/ISettingsStore.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace
{

constexpr std::uint32_t c_uModeBits = 0xFF;

EnumAtomColourMode ColourModeOfFile(std::int32_t number)
{
    return (static_cast<std::uint32_t>(number) & c_uModeBits) != 0 ? EnumAtomColourMode::Speed
                                                                   : EnumAtomColourMode::Fixed;
}

} // namespace

std::int64_t GetNumber(const CSettingRow& row, const CSettings& settings)
{
    return std::visit(
        [](const auto* pValue) -> std::int64_t {
            if constexpr (std::is_same_v<decltype(pValue), const CFactor*>)
            {
                return 0;
            }
            else
            {
                return static_cast<std::int64_t>(*pValue);
            }
        },
        row.place.Find(settings));
}

void SetNumber(const CSettingRow& row, CSettings& settings, std::int32_t number)
{
    std::visit(
        [number]<class T>(T* pValue) {
            if constexpr (std::is_same_v<T, EnumAtomColourMode>)
            {
                *pValue = ColourModeOfFile(number);
            }
            else if constexpr (std::is_integral_v<T>)
            {
                *pValue = static_cast<T>(number); // a byte keeps the low 8 bits
            }
        },
        row.place.Find(settings));
}

std::int32_t ClampNumber(const CSettingRow& row, std::int32_t number)
{
    return static_cast<std::int32_t>(std::max(row.range.low, std::min<std::int64_t>(number, row.range.high)));
}

CWString GetFactorText(const CSettingRow& row, const CSettings& settings)
{
    const CSettingPlace::CConstValue value = row.place.Find(settings);
    const CFactor* const* const ppFactor = std::get_if<const CFactor*>(&value);
    return ppFactor != nullptr ? (*ppFactor)->GetText() : CWString();
}

void SetFactorText(const CSettingRow& row, CSettings& settings, const CWString& sText)
{
    const CSettingPlace::CValue value = row.place.Find(settings);
    if (CFactor* const* const ppFactor = std::get_if<CFactor*>(&value))
    {
        **ppFactor = CFactor(sText);
    }
}

void ReadSetting(const ISettingsStore& store, const CSettingRow& row, CSettings& settings)
{
    const bool bSpeed = settings.eMode == EnumAtomColourMode::Speed;
    if (row.eType != EnumSettingType::Factor)
    {
        const std::uint32_t uDefault = bSpeed ? row.byDefault.uSpeed : row.byDefault.uFixed;
        SetNumber(row, settings, store.ReadNumber(row.sFileKey, static_cast<std::int32_t>(uDefault)));
    }
    else if (row.IsUsedIn(settings.eMode))
    {
        SetFactorText(row, settings,
                      store.ReadText(row.sFileKey, bSpeed ? row.byDefault.sSpeed : row.byDefault.sFixed));
    }
    else
    {
        SetFactorText(row, settings, CWString());
    }
}

void SortRadii(CSettings& settings)
{
    if (settings.minRadius > settings.maxRadius)
    {
        std::swap(settings.minRadius, settings.maxRadius);
    }
}
