#include "headless/Resume.h"

#include "headless/console/HeadlessError.h"
#include "headless/options/COptions.h"
#include "headless/options/OptionValues.h"
#include "headless/states/Checkpoint.h"

#include <optional>
#include <string>

namespace
{

[[noreturn]] void FailToResume(const char* sOption, const std::string& sWhat)
{
    throw CUsageError(std::string(sOption) + ": contradicts the checkpoint of --resume, " + sWhat);
}

// The option may repeat the value of the checkpoint.
template<class T, class U>
void Check(const char* sOption, const std::optional<T>& option, const U& value, const std::string& sValue)
{
    if (option && !(*option == static_cast<T>(value)))
    {
        FailToResume(sOption, "which holds " + sValue);
    }
}

template<class T, class U>
void CheckNumber(const char* sOption, const std::optional<T>& option, U value)
{
    Check(sOption, option, value, std::to_string(value));
}

} // namespace

void CheckAgainstCheckpoint(const COptions& options, const CCheckpoint& checkpoint)
{
    const CSettings& settings = checkpoint.settings;
    CheckNumber("--width", options.width, settings.world.cx);
    CheckNumber("--height", options.height, settings.world.cy);
    CheckNumber("--atoms", options.atoms, settings.atoms);
    CheckNumber("--min-radius", options.minRadius, settings.minRadius);
    CheckNumber("--max-radius", options.maxRadius, settings.maxRadius);
    CheckNumber("--seed", options.seed, checkpoint.seed);
    if (options.startAt)
    {
        const std::optional<std::string> sStart = TextOfPoint(*options.startAt);
        Check("--start-at", sStart, checkpoint.start, "the start " + checkpoint.start);
    }
    Check("--colour-mode", options.colourMode, settings.eMode, "the other mode");
    Check("--colours", options.colours, settings.colours, "other colours");
    Check("--factors", options.factors, settings.factors, "other factors");
    Check("--background", options.background, settings.background, "another colour");
}
