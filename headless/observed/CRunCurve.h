#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class CByteReader;
class CByteWriter;
struct CRunMoment;

// A point of a curve: the state after an iteration, and what happened since the point before.
struct CCurvePoint
{
    std::uint64_t iteration{};
    std::uint64_t collisions{}; // of the iterations since the point before
    std::uint64_t counted{};    // how many these are; 0 at the start of a run
    double energy{};            // see ComputeKineticEnergy
    float minSpeed{};           // world units per iteration
    float maxSpeed{};
    float averageSpeed{};

    bool operator==(const CCurvePoint&) const = default;
};

// The course of a run of any length in a limited number of points. The state is taken at the first moment and at every
// multiple of a stride, which doubles when the points become too many; half of them are then left out. Collisions are
// added up between the points, because their number in one iteration is mostly chance. The points depend only on the
// moments, not on where a run was interrupted.
class CRunCurve
{
public:
    static constexpr std::size_t c_uMostPoints = 2000;

    // uMostPoints is at least 2.
    explicit CRunCurve(std::size_t uMostPoints = c_uMostPoints) : m_uMostPoints(uMostPoints) {}

    // Passes over the atoms only where it makes a point.
    void Observe(const CRunMoment& moment);

    // The points so far. The last one is that of the moment, which was observed last, on the stride or not.
    std::vector<CCurvePoint> GetPoints(const CRunMoment& last) const;

    // Everything that Continue needs.
    void Save(CByteWriter& writer) const;

    // Takes over what Save has written. Throws CHeadlessError for anything else.
    void Continue(CByteReader& reader);

private:
    CCurvePoint MakePoint(const CRunMoment& moment) const;
    void DropHalf();

    std::size_t m_uMostPoints;
    std::uint64_t m_uStride = 1;
    std::uint64_t m_uCollisions = 0; // since the last point
    std::uint64_t m_uCounted = 0;    // iterations since then
    std::vector<CCurvePoint> m_Points;
};
