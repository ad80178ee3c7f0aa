#include "simulation/FrameCap.h"

#include "simulation/SimulationConstants.h"

std::int64_t GetFrameCapWait(float passMs)
{
    const auto ms = static_cast<double>(passMs);
    if (!(0 < ms && ms < c_dFramePeriodMs))
    {
        return 0;
    }
    return static_cast<std::int64_t>((c_dFramePeriodMs - ms) * c_dMicroSecondsPerMs);
}
