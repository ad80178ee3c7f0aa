#include "headless/StateHash.h"

#include "simulation/CAtoms.h"

#include <bit>

namespace
{

constexpr std::uint64_t c_uFnvStart = 14695981039346656037U;
constexpr std::uint64_t c_uFnvFactor = 1099511628211U;
constexpr std::uint32_t c_uByteMask = 0xFF;
constexpr unsigned c_uByteBits = 8;
constexpr unsigned c_uFloatBits = 32;

void AddByte(std::uint64_t& uHash, std::uint32_t uByte)
{
    uHash = (uHash ^ uByte) * c_uFnvFactor;
}

void AddFloat(std::uint64_t& uHash, float value)
{
    const auto uBits = std::bit_cast<std::uint32_t>(value);
    for (unsigned uShift = 0; uShift < c_uFloatBits; uShift += c_uByteBits)
    {
        AddByte(uHash, (uBits >> uShift) & c_uByteMask);
    }
}

} // namespace

std::uint64_t ComputeStateHash(const CAtoms& atoms)
{
    std::uint64_t uHash = c_uFnvStart;
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const CAtom& atom = atoms[index];
        AddFloat(uHash, atom.x);
        AddFloat(uHash, atom.y);
        AddFloat(uHash, atom.vx);
        AddFloat(uHash, atom.vy);
        AddByte(uHash, atom.radius);
    }
    return uHash;
}
