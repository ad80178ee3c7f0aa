#include "tests/reference/WorldHash.h"

#include <bit>

namespace
{

constexpr std::uint64_t c_uFnvOffset = 0xCBF29CE484222325U;
constexpr std::uint64_t c_uFnvPrime = 0x100000001B3U;
constexpr int c_iBitsPerByte = 8;
constexpr std::uint32_t c_uByteMask = 0xFF;

std::uint64_t AddWord(std::uint64_t hash, std::uint32_t word)
{
    for (std::size_t i = 0; i < sizeof(word); ++i)
    {
        hash = (hash ^ (word & c_uByteMask)) * c_uFnvPrime;
        word >>= c_iBitsPerByte;
    }
    return hash;
}

} // namespace

std::uint64_t HashAtoms(std::span<const CAtom> atoms)
{
    std::uint64_t hash = c_uFnvOffset;
    for (const CAtom& atom : atoms)
    {
        for (const float value : {atom.x, atom.y, atom.speed, atom.vx, atom.vy})
        {
            hash = AddWord(hash, std::bit_cast<std::uint32_t>(value));
        }
        hash = AddWord(hash, atom.radius);
        hash = AddWord(hash, static_cast<std::uint32_t>(atom.reserved));
    }
    return hash;
}
