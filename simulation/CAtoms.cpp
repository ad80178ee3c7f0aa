#include "simulation/CAtoms.h"

#include <stdexcept>
#include <utility>

CAtoms::CAtoms(CAtoms&& other) noexcept
    : m_pAtoms(std::move(other.m_pAtoms)),
      m_iCount(std::exchange(other.m_iCount, 0)),
      m_Velocities(std::exchange(other.m_Velocities, {}))
{
}

CAtoms& CAtoms::operator=(CAtoms&& other) noexcept
{
    m_pAtoms = std::move(other.m_pAtoms);
    m_iCount = std::exchange(other.m_iCount, 0);
    m_Velocities = std::exchange(other.m_Velocities, {});
    return *this;
}

void CAtoms::Allocate(std::int32_t count)
{
    // The old array goes first: two of them at a time would double the memory of a large world.
    m_pAtoms.reset();
    m_iCount = 0;
    m_Velocities = {};
    if (count < 0)
    {
        throw std::length_error("the number of atoms is below zero");
    }
    if (count > 0)
    {
        // An empty set needs no memory, so that it can always be had.
        m_pAtoms = std::make_unique<CAtom[]>(static_cast<std::size_t>(count));
        m_iCount = count;
    }
}
