#include "tests/reference/WorldHash.h"

#include "classes/core/CFnvHash.h"

#include <bit>

std::uint64_t HashAtoms(std::span<const CAtom> atoms)
{
    CFnvHash hash;
    for (const CAtom& atom : atoms)
    {
        for (const float value : {atom.x, atom.y, atom.speed, atom.vx, atom.vy})
        {
            hash.AddWord(std::bit_cast<std::uint32_t>(value));
        }
        hash.AddWord(atom.radius);
        hash.AddWord(static_cast<std::uint32_t>(atom.reserved));
    }
    return hash.Get();
}
