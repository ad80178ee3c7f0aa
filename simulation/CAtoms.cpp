#include "simulation/CAtoms.h"

#include <stdexcept>
#include <utility>

CAtoms::CAtoms(CAtoms&& other) noexcept
    : m_Atoms(std::move(other.m_Atoms)),
      m_iCount(std::exchange(other.m_iCount, 0)),
      m_Velocities(std::exchange(other.m_Velocities, {}))
{
}

CAtoms& CAtoms::operator=(CAtoms&& other) noexcept
{
    m_Atoms = std::move(other.m_Atoms);
    m_iCount = std::exchange(other.m_iCount, 0);
    m_Velocities = std::exchange(other.m_Velocities, {});
    return *this;
}

void CAtoms::Allocate(std::int32_t count)
{
    // Free the old array first: two arrays at a time would double the memory of a large world.
    m_Atoms = CLargeVector<CAtom>();
    m_iCount = 0;
    m_Velocities = {};
    if (count < 0)
    {
        throw std::length_error("the number of atoms is negative");
    }
    // An empty set needs no memory, so making one cannot fail.
    if (count > 0)
    {
        m_Atoms = CLargeVector<CAtom>(static_cast<std::size_t>(count));
        m_iCount = count;
    }
}
