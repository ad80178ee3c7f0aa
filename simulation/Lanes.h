#pragma once

#include "simulation/CellScratch.h"

#include <cstdint>

// The vector operations that the kernels are written in. Each instruction set has one class of this form, in its
// SimulationKernels_*.cpp. There it is in an anonymous namespace: a template over it has internal linkage too, so the
// linker cannot let the code of one instruction set stand for that of another.
//
// A vector has c_iCount lanes; a block is the c_iCount elements of a scratch array from a multiple of c_iCount on. A
// mask has one bit per lane, the lowest for lane 0.
template<class T>
concept IsLanes = requires(const typename T::CCircle& circle, const typename T::CDisc& disc,
                           const typename T::Floats& floats, const typename T::Ints& ints, CCellScratch& scratch,
                           float* pFloats, std::int32_t* pInts, std::uint32_t* pEnd)
{
    requires T::c_iCount <= c_iMaxLanes;

    // The points that FindNear looks at in one step: one block or several.
    requires T::c_iSearchCount % T::c_iCount == 0 && T::c_iSearchCount <= c_iMaxLanes;

    // Stores the value into c_iCount elements; no alignment needed.
    T::Fill(pInts, std::int32_t{});
    T::Fill(pFloats, float{});

    // The CCircle with a circle (x, y, radius in world units) in every lane.
    T::MakeCircle(float{}, float{}, float{});

    // Mask of the atoms of a block that touch the circle: dy * dy + dx * dx <= (r1 + r2) * (r1 + r2), rounded after
    // each operation and added in this order. A NaN touches nothing.
    T::FindTouching(circle, scratch, int{});

    // The CDisc with a packed point (see CCellScratch::points) and the square of a radius in points in every lane.
    T::MakeDisc(std::int32_t{}, std::int32_t{});

    // Mask of the c_iSearchCount points from a multiple of that on that are within the disc: one subtraction of 16-bit
    // integers, and one multiplication that also adds the two squares.
    T::FindNear(disc, scratch, int{});

    // Packed points of a block: (position - origin) * scale, clamped to -limit..limit, rounded to nearest. NaN gives
    // the limit.
    T::MakePoints(scratch, int{}, float{}, float{});

    // Writes uFirst + lane * sizeof(CCellAtom) for each lane of the mask, in order, and returns how many. May write up
    // to c_iSearchCount elements whatever the mask is.
    T::Append(pEnd, std::uint32_t{}, std::uint32_t{});

    // A quad is four lanes. Quad q of LoadQuads is the field of atom 4 * q and the three that follow it in the record;
    // the pointer is to that field of atom 0.
    T::LoadQuads(pFloats);

    // In each quad of a and b: a0 b0 a1 b1; a2 b2 a3 b3; a0 a1 b0 b1; a2 a3 b2 b3.
    T::InterleaveLow(floats, floats);
    T::InterleaveHigh(floats, floats);
    T::JoinLow(floats, floats);
    T::JoinHigh(floats, floats);

    // Stores the first two lanes of quad q to a field of atom 4 * q and the one that follows it, the last two lanes to
    // those of atom 4 * q + 1; the pointer is to the field of atom 0.
    T::StorePairs(pFloats, floats);

    T::SquareRoot(floats);

    // a < b ? a : b, and a > b ? a : b: the second if one is NaN.
    T::Min(floats, floats);
    T::Max(floats, floats);

    // True if any bit of any lane is set.
    T::HasAny(ints);
};
