#include "headless/CIniText.h"
#include "headless/HeadlessError.h"
#include "headless/RunSettings.h"
#include "simulation/SimulationConstants.h"
#include "tests/headless/fuzz/FuzzTarget.h"

#include <string_view>

namespace
{

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

void Resolve(const CIniText& file, const COptions& options)
{
    try
    {
        CheckSettings(ResolveSettings(options, "fuzzed", &file));
    }
    catch (const CHeadlessError&)
    {
        // Refusing is right for most of what a fuzzer makes.
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    const CIniText file(std::string_view(reinterpret_cast<const char*>(pBytes), uCount));
    COptions options;
    Resolve(file, options);
    options.colourMode = EnumAtomColourMode::Fixed;
    Resolve(file, options);
    return 0;
}
