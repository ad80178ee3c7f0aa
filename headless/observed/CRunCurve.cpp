#include "headless/observed/CRunCurve.h"

#include "headless/console/HeadlessError.h"
#include "headless/files/CByteReader.h"
#include "headless/files/CByteWriter.h"
#include "headless/observed/IRunObserver.h"
#include "headless/observed/KineticSums.h"
#include "simulation/CAtoms.h"

#include <bit>

void CRunCurve::Observe(const CRunMoment& moment)
{
    m_uCollisions += moment.collisions;
    m_uCounted += moment.iteration > 0 ? 1 : 0;
    if (!m_Points.empty() && moment.iteration % m_uStride != 0)
    {
        return;
    }
    m_Points.push_back(MakePoint(moment));
    m_uCollisions = 0;
    m_uCounted = 0;
    if (m_Points.size() > m_uMostPoints)
    {
        DropHalf();
    }
}

std::vector<CCurvePoint> CRunCurve::GetPoints(const CRunMoment& last) const
{
    std::vector<CCurvePoint> points = m_Points;
    if (points.empty() || points.back().iteration != last.iteration)
    {
        points.push_back(MakePoint(last));
    }
    return points;
}

CCurvePoint CRunCurve::MakePoint(const CRunMoment& moment) const
{
    const CVelocityStatistics& velocities = moment.atoms.GetVelocities();
    return {moment.iteration, m_uCollisions,  m_uCounted,    ComputeKineticEnergy(moment.atoms),
            velocities.min,   velocities.max, velocities.avg};
}

// The collisions of a point that is left out go to the next one, or to those since the last point.
void CRunCurve::DropHalf()
{
    m_uStride *= 2;
    std::vector<CCurvePoint> kept;
    for (const CCurvePoint& point : m_Points)
    {
        m_uCollisions += point.collisions;
        m_uCounted += point.counted;
        if (kept.empty() || point.iteration % m_uStride == 0)
        {
            kept.push_back(point);
            kept.back().collisions = m_uCollisions;
            kept.back().counted = m_uCounted;
            m_uCollisions = 0;
            m_uCounted = 0;
        }
    }
    m_Points.swap(kept);
}

void CRunCurve::Save(CByteWriter& writer) const
{
    writer.Write64(m_uStride);
    writer.Write64(m_uCollisions);
    writer.Write64(m_uCounted);
    writer.Write32(static_cast<std::uint32_t>(m_Points.size()));
    for (const CCurvePoint& point : m_Points)
    {
        writer.Write64(point.iteration);
        writer.Write64(point.collisions);
        writer.Write64(point.counted);
        writer.Write64(std::bit_cast<std::uint64_t>(point.energy));
        for (const float speed : {point.minSpeed, point.maxSpeed, point.averageSpeed})
        {
            writer.Write32(std::bit_cast<std::uint32_t>(speed));
        }
    }
}

void CRunCurve::Continue(CByteReader& reader)
{
    m_uStride = reader.Read64();
    m_uCollisions = reader.Read64();
    m_uCounted = reader.Read64();
    const std::size_t uCount = reader.Read32();
    m_Points.clear();
    for (std::size_t u = 0; reader.IsGood() && u < uCount && u <= m_uMostPoints; ++u)
    {
        CCurvePoint point;
        point.iteration = reader.Read64();
        point.collisions = reader.Read64();
        point.counted = reader.Read64();
        point.energy = std::bit_cast<double>(reader.Read64());
        for (float* const pSpeed : {&point.minSpeed, &point.maxSpeed, &point.averageSpeed})
        {
            *pSpeed = std::bit_cast<float>(reader.Read32());
        }
        m_Points.push_back(point);
    }
    if (!reader.IsGood() || uCount > m_uMostPoints || m_uStride == 0)
    {
        throw CHeadlessError("--report: the curves in the checkpoint of --resume are damaged");
    }
}
