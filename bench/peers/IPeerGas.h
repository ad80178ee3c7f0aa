#pragma once

#include "classes/core/CSize.h"
#include "simulation/CAtom.h"

#include <memory>
#include <span>

// The gas in another engine: discs of equal mass that bounce off each other and off four walls without loss, friction
// or spin. The unit of time is one iteration: a step moves each disc by its velocity.
struct IPeerGas
{
    virtual ~IPeerGas() = default;
    virtual void Step() = 0;

    // Sum of all kinetic energies (mass 1, world units per iteration): shows whether it is still the same gas.
    virtual double GetEnergy() const = 0;

protected:
    IPeerGas() = default;
    IPeerGas(const IPeerGas&) = default;
    IPeerGas& operator=(const IPeerGas&) = default;
};

std::unique_ptr<IPeerGas> MakeBox2DGas(const CSize<int>& world, std::span<const CAtom> atoms);
std::unique_ptr<IPeerGas> MakeChipmunkGas(const CSize<int>& world, std::span<const CAtom> atoms);
