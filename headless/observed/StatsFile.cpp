#include "headless/observed/StatsFile.h"

#include "headless/console/NumberText.h"
#include "headless/files/IByteSink.h"

#include <string>

void WriteStatsHeader(IByteSink& sink)
{
    sink.Write("iteration,collisions,min_velocity,max_velocity,tot_velocity,avg_velocity\n");
}

void WriteStatsRow(IByteSink& sink, std::uint64_t uIteration, std::uint32_t uCollisions,
                   const CVelocityStatistics& velocities)
{
    std::string sRow = std::to_string(uIteration) + ',' + std::to_string(uCollisions);
    for (const float value : {velocities.min, velocities.max, velocities.tot, velocities.avg})
    {
        sRow += ',';
        AppendFloat(sRow, value);
    }
    sink.Write(sRow + '\n');
}
