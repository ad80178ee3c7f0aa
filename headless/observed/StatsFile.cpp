#include "headless/observed/StatsFile.h"

#include "headless/console/NumberText.h"

namespace
{

void AddColumn(std::string& sRow, double value)
{
    sRow += ',';
    AppendDouble(sRow, value);
}

void AddObservables(std::string& sRow, const CObservables& observables)
{
    AddColumn(sRow, observables.energy);
    AddColumn(sRow, observables.momentum.x);
    AddColumn(sRow, observables.momentum.y);
    for (const CWallBounces& wall : observables.bounces)
    {
        sRow += ',' + std::to_string(wall.count);
    }
    for (const CWallBounces& wall : observables.bounces)
    {
        AddColumn(sRow, wall.impulse);
    }
    AddColumn(sRow, observables.pressure);
}

} // namespace

std::string GetStatsHeader(bool bObservables)
{
    std::string sHeader = "iteration,collisions,min_velocity,max_velocity,tot_velocity,avg_velocity";
    if (bObservables)
    {
        sHeader += ",kinetic_energy,momentum_x,momentum_y,left_bounces,right_bounces,top_bounces,bottom_bounces,"
                   "left_impulse,right_impulse,top_impulse,bottom_impulse,pressure";
    }
    return sHeader + '\n';
}

std::string FormatStatsRow(const CStatsRow& row)
{
    std::string sRow = std::to_string(row.iteration) + ',' + std::to_string(row.collisions);
    for (const float value : {row.velocities.min, row.velocities.max, row.velocities.tot, row.velocities.avg})
    {
        sRow += ',';
        AppendFloat(sRow, value);
    }
    if (row.observables)
    {
        AddObservables(sRow, *row.observables);
    }
    return sRow + '\n';
}
