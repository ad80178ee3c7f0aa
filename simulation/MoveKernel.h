#pragma once

#include "simulation/AtomFields.h"
#include "simulation/CAtom.h"
#include "simulation/GridGeometry.h"
#include "simulation/Lanes.h"

#include <cstdint>

// Moves, reflects and locates c_iCount atoms at a time. Each lane computes the scalar formulas of MoveAtom
// (Iteration.cpp) and CGridGeometry::Locate, operation by operation in their order: single-precision addition is not
// associative, so any other order would change bits. Comparisons give all-ones or zero per lane; the only branch is
// around storing the velocities, which few atoms need.
template<IsLanes Lanes>
class CMoveKernel
{
public:
    // See CSimulationKernels::pMoveAtomGroups.
    static int MoveAtomGroups(CAtom* pAtoms, int count, const CSize<int>& world, const CGridGeometry& geometry,
                              std::uint32_t* pPlaces)
    {
        const CAxis columns = {static_cast<float>(geometry.columns - 1), static_cast<float>(geometry.cellWidth)};
        const CAxis rows = {static_cast<float>(geometry.rows - 1), static_cast<float>(geometry.cellHeight)};
        int index = 0;
        for (; index + Lanes::c_iCount <= count; index += Lanes::c_iCount)
        {
            CAtom* const pGroup = pAtoms + index;
            const CMotion motion = Fields::LoadMotion(pGroup);
            const CPositions before = Fields::LoadPositions(pGroup);
            const Ints radius = motion.radius;
            const Floats r = __builtin_convertvector(radius, Floats);
            Floats x = before.first + motion.vx;
            Floats y = before.second + motion.vy;
            const Ints bouncedY = Reflect(y, radius, r, world.cy);
            const Ints bouncedX = Reflect(x, radius, r, world.cx);
            Fields::StorePositions(pGroup, x, y);
            if (Lanes::HasAny(bouncedX | bouncedY)) [[unlikely]]
            {
                Fields::StoreVelocities(pGroup, Negate(motion.vx, bouncedX), Negate(motion.vy, bouncedY));
            }
            const Ints places = LocateAtoms(x, y, r, columns, rows);
            __builtin_memcpy(pPlaces + index, &places, sizeof places);
        }
        return index;
    }

private:
    using Floats = typename Lanes::Floats;
    using Ints = typename Lanes::Ints;
    using Fields = CAtomFields<Lanes>;
    using CMotion = typename Fields::CMotion;
    using CPositions = typename Fields::CPairOfFields;

    // One axis of a grid.
    struct CAxis
    {
        float last;   // number of the last cell
        float length; // of a cell, world units
    };

    // Along one axis: the cells that hold the centres of some atoms, and the edges that the atoms reach.
    struct CSpan
    {
        Floats cell;
        Floats lowEdge;     // world units
        Floats highEdge;    // world units
        Ints reachesLower;  // the atom touches the low edge and there is a cell beyond it
        Ints reachesHigher; // likewise at the high edge
        Ints hasLower;
        Ints hasHigher;
    };

    // Reflects one coordinate at the two walls across it, at 0 and at length (world units):
    //   p - r < 0             gives  r - (p - r)
    //   length - (r + p) < 0  gives  (length - radius) + (length - (r + p))
    // Returns the lanes that bounced.
    static Ints Reflect(Floats& position, Ints radius, Floats r, int length)
    {
        const Floats under = position - r;
        const Floats over = static_cast<float>(length) - (r + position);
        const Ints below = under < 0.0F;
        const Ints beyond = ~below & (over < 0.0F);
        const Floats farMirror = __builtin_convertvector(length - radius, Floats) + over;
        position = below ? r - under : beyond ? farMirror : position;
        return below | beyond;
    }

    // The values with the sign changed in the given lanes.
    static Floats Negate(Floats values, Ints lanes) { return lanes ? -values : values; }

    static CSpan FindSpan(Floats position, Floats r, const CAxis& axis)
    {
        CSpan span;
        const Floats number = position / axis.length;
        // The number is clamped before it becomes an integer. NaN fails the first comparison and gives cell 0.
        const Floats fromZero = number > 0.0F ? number : Floats{};
        const Floats limited = fromZero < axis.last ? fromZero : Floats{} + axis.last;
        span.cell = __builtin_convertvector(__builtin_convertvector(limited, Ints), Floats);
        span.lowEdge = span.cell * axis.length;
        span.highEdge = (span.cell + 1.0F) * axis.length;
        span.hasLower = span.cell > 0.0F;
        span.hasHigher = span.cell < axis.last;
        span.reachesLower = (span.lowEdge >= position - r) & span.hasLower;
        span.reachesHigher = (r + position >= span.highEdge) & span.hasHigher;
        return span;
    }

    static Ints BitIn(EnumNeighbour eNeighbour, Ints lanes) { return lanes & (1 << static_cast<int>(eNeighbour)); }

    // The places (see CGridGeometry::Locate) of some atoms.
    __attribute__((always_inline)) static Ints LocateAtoms(Floats x, Floats y, Floats r, const CAxis& columns,
                                                           const CAxis& rows)
    {
        const CSpan h = FindSpan(x, r, columns);
        const CSpan v = FindSpan(y, r, rows);
        const Floats square = r * r;
        const Floats toLeft = (h.lowEdge - x) * (h.lowEdge - x);
        const Floats toRight = (h.highEdge - x) * (h.highEdge - x);
        const Floats toTop = (v.lowEdge - y) * (v.lowEdge - y);
        const Floats toBottom = (v.highEdge - y) * (v.highEdge - y);
        // Cell numbers are whole and below 2^24 (c_uMaxCells), so floats hold them exactly.
        const Ints cell = __builtin_convertvector(v.cell * (columns.last + 1.0F) + h.cell, Ints);
        return (cell << c_iNeighbourCount) | BitIn(EnumNeighbour::North, v.reachesLower) |
               BitIn(EnumNeighbour::NorthEast, v.hasLower & h.hasHigher & (square >= toRight + toTop)) |
               BitIn(EnumNeighbour::East, h.reachesHigher) |
               BitIn(EnumNeighbour::SouthEast, v.hasHigher & h.hasHigher & (square >= toRight + toBottom)) |
               BitIn(EnumNeighbour::South, v.reachesHigher) |
               BitIn(EnumNeighbour::SouthWest, v.hasHigher & h.hasLower & (square >= toLeft + toBottom)) |
               BitIn(EnumNeighbour::West, h.reachesLower) |
               BitIn(EnumNeighbour::NorthWest, v.hasLower & h.hasLower & (square >= toLeft + toTop));
    }
};
