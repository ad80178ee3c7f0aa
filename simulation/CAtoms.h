#pragma once

#include "classes/core/CLargePageAllocator.h"
#include "simulation/CAtom.h"

#include <cstdint>

// The speeds of all atoms at the end of an iteration, in world units per iteration.
struct CVelocityStatistics
{
    float min{};
    float max{};
    float tot{};
    float avg{};

    bool operator==(const CVelocityStatistics&) const = default;
};

// All atoms of a world in one array, and the velocity statistics of the last iteration. The size of the array does not
// change while a simulation runs.
class CAtoms
{
public:
    CAtoms() = default;
    CAtoms(CAtoms&& other) noexcept;
    CAtoms& operator=(CAtoms&& other) noexcept;
    CAtoms(const CAtoms&) = delete;
    CAtoms& operator=(const CAtoms&) = delete;
    ~CAtoms() = default;

    // Frees the present atoms and makes count new ones with every field zero. Throws std::length_error (negative count)
    // or std::bad_alloc; the set is then empty: no atoms, statistics zero.
    void Allocate(std::int32_t count);

    CAtom* GetAtoms() { return m_Atoms.data(); }
    const CAtom* GetAtoms() const { return m_Atoms.data(); }
    std::int32_t GetCount() const { return m_iCount; }

    // index is 0..count - 1.
    CAtom& operator[](std::int32_t index) { return m_Atoms[static_cast<std::size_t>(index)]; }
    const CAtom& operator[](std::int32_t index) const { return m_Atoms[static_cast<std::size_t>(index)]; }

    float GetMinVelocity() const { return m_Velocities.min; }
    float GetMaxVelocity() const { return m_Velocities.max; }
    float GetTotVelocity() const { return m_Velocities.tot; }
    float GetAvgVelocity() const { return m_Velocities.avg; }
    const CVelocityStatistics& GetVelocities() const { return m_Velocities; }
    void SetVelocities(const CVelocityStatistics& velocities) { m_Velocities = velocities; }

private:
    CLargeVector<CAtom> m_Atoms;
    std::int32_t m_iCount = 0;
    CVelocityStatistics m_Velocities;
};
