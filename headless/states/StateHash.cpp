#include "headless/states/StateHash.h"

#include "classes/core/CFnvHash.h"
#include "simulation/CAtoms.h"

#include <bit>

std::uint64_t ComputeStateHash(const CAtoms& atoms)
{
    CFnvHash hash;
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const CAtom& atom = atoms[index];
        for (const float value : {atom.x, atom.y, atom.vx, atom.vy})
        {
            hash.AddWord(std::bit_cast<std::uint32_t>(value));
        }
        hash.AddByte(atom.radius);
    }
    return hash.Get();
}
