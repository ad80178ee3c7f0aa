#pragma once

#include "simulation/CAtom.h"
#include "simulation/Lanes.h"

// Loads and stores the fields of c_iCount consecutive atoms, one vector for each field. The records are read 16 bytes
// at a time and transposed. A gather or scatter for each field touches every record again: with AVX-512 it took twice
// the time when the atoms come from memory.
//
// A quad is four lanes of a vector, for four consecutive atoms.
template<IsLanes Lanes>
struct CAtomFields
{
    using Floats = typename Lanes::Floats;
    using Ints = typename Lanes::Ints;

    // A field of each atom and the one that follows it in the record.
    struct CPairOfFields
    {
        Floats first;
        Floats second;
    };

    struct CMotion
    {
        Floats vx;
        Floats vy;
        Ints radius;
    };

    static CPairOfFields LoadPositions(const CAtom* pAtoms)
    {
        const CHalves halves = LoadHalves(&pAtoms->x);
        return Transpose(halves.low01, halves.low23);
    }

    static CPairOfFields LoadVelocities(const CAtom* pAtoms)
    {
        const CHalves halves = LoadHalves(&pAtoms->vx);
        return Transpose(halves.low01, halves.low23);
    }

    static CMotion LoadMotion(const CAtom* pAtoms)
    {
        const CHalves halves = LoadHalves(&pAtoms->vx);
        const CPairOfFields velocities = Transpose(halves.low01, halves.low23);
        // The radius is the lowest byte of its word; the others are padding.
        const auto words = reinterpret_cast<Ints>(Floats(Lanes::JoinLow(halves.high01, halves.high23)));
        return {velocities.first, velocities.second, words & 0xFF};
    }

    static void StorePositions(CAtom* pAtoms, Floats x, Floats y) { StorePairs(&pAtoms->x, x, y); }

    static void StoreVelocities(CAtom* pAtoms, Floats vx, Floats vy) { StorePairs(&pAtoms->vx, vx, vy); }

private:
    // Of the four fields from one on, in atoms 0 and 1 and in atoms 2 and 3 of each quad, interleaved: the first two
    // fields and the last two.
    struct CHalves
    {
        Floats low01;
        Floats low23;
        Floats high01;
        Floats high23;
    };

    static CHalves LoadHalves(const float* pField)
    {
        const Floats atom0 = Lanes::LoadQuads(pField);
        const Floats atom1 = Lanes::LoadQuads(pField + c_iAtomFloats);
        const Floats atom2 = Lanes::LoadQuads(pField + 2 * c_iAtomFloats);
        const Floats atom3 = Lanes::LoadQuads(pField + 3 * c_iAtomFloats);
        return {Lanes::InterleaveLow(atom0, atom1), Lanes::InterleaveLow(atom2, atom3),
                Lanes::InterleaveHigh(atom0, atom1), Lanes::InterleaveHigh(atom2, atom3)};
    }

    static CPairOfFields Transpose(Floats atoms01, Floats atoms23)
    {
        return {Lanes::JoinLow(atoms01, atoms23), Lanes::JoinHigh(atoms01, atoms23)};
    }

    static void StorePairs(float* pField, Floats first, Floats second)
    {
        Lanes::StorePairs(pField, Lanes::InterleaveLow(first, second));
        Lanes::StorePairs(pField + 2 * c_iAtomFloats, Lanes::InterleaveHigh(first, second));
    }
};
