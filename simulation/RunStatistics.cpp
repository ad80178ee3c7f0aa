#include "simulation/RunStatistics.h"

#include "classes/core/Percent.h"
#include "simulation/SimulationConstants.h"

CWString FormatStatisticsLine(const CRunStatistics& statistics)
{
    const float averageMs = statistics.timeSumMs / static_cast<float>(statistics.iterationsSinceReport);
    const double framesPerSecond = c_dMsPerSecond / static_cast<double>(averageMs);
    const double collided = static_cast<double>(statistics.collisionsSinceReport) * c_dPercent /
                            static_cast<double>(statistics.iterationsSinceReport) /
                            static_cast<double>(statistics.atomCount);
    const CVelocityStatistics& velocities = statistics.velocities;
    CWString line;
    line.Format(L"Iter = %I64u   %.2f ms = %.2f FPS     velocity: min = %.3f   max = %.3f   tot = %.3f   avg = %.3f   "
                L"collided = %.2f%%",
                statistics.totalIterations, static_cast<double>(averageMs), framesPerSecond,
                static_cast<double>(velocities.min), static_cast<double>(velocities.max),
                static_cast<double>(velocities.tot), static_cast<double>(velocities.avg), collided);
    return line;
}
