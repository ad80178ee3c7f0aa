#include "simulation/SpeedSum.h"

#include <bit>
#include <cstddef>
#include <cstdint>

// Adding floats is not associative, so the usual way is a chain in which each addition waits for the one before. But
// while the sum stays between 2^e and 2^(e + 1), all its values are multiples of one unit, u = 2^(e - 23). Adding x
// then means adding the multiple of u that is nearest to x, whatever the sum is. The sum decides only if x lies exactly
// in the middle between two multiples: the result is then the even one of its two neighbours. Multiples of u below 2^(e
// + 1) are floats, and adding them is exact in any order.
//
// So a block is rounded and added up in lanes. If one of its values lies in the middle, or the sum leaves its range,
// the block is added one by one instead. Of random speeds around 1, one in 2^(e + 1) lies in the middle: only the first
// thousand atoms are slow.

namespace
{

constexpr std::size_t c_uLanes = 4; // every x86-64 processor has them
constexpr std::size_t c_uBlock = 64;

using Floats = float __attribute__((vector_size(sizeof(float) * c_uLanes)));
using Ints = std::int32_t __attribute__((vector_size(sizeof(std::int32_t) * c_uLanes)));

constexpr std::uint32_t c_uExponent = 0x7F800000U; // the bits of a float that hold its exponent
constexpr float c_fUnit = 0x1p-23F;                // of floats from 1 to 2
constexpr float c_fSmallest = 0x1p-60F;            // keeps all numbers below normal
constexpr float c_fLargest = 0x1p+60F;

// Adds a block if that is possible in lanes.
bool AddBlock(float& fSum, const float* pBlock)
{
    if (!(fSum >= c_fSmallest && fSum <= c_fLargest))
    {
        return false;
    }
    const auto fLow = std::bit_cast<float>(std::bit_cast<std::uint32_t>(fSum) & c_uExponent); // 2^e
    const float fMiddle = fLow * c_fUnit / 2;
    Floats total{};
    Ints refused{};
    for (std::size_t i = 0; i < c_uBlock; i += c_uLanes)
    {
        Floats x;
        __builtin_memcpy(&x, pBlock + i, sizeof x);
        const Floats rounded = (x + fLow) - fLow; // floats from 2^e to 2^(e + 1) are the multiples of u
        const Floats rest = x - rounded;          // exact
        refused |= (rest == fMiddle) | (rest == -fMiddle) | ~((x >= 0.0F) & (x < fLow));
        total += rounded;
    }
    const float fNew = fSum + ((total[0] + total[1]) + (total[2] + total[3]));
    // If a sum on the way was too large to be exact, so is this one.
    if ((refused[0] | refused[1] | refused[2] | refused[3]) != 0 || !(fNew < 2 * fLow))
    {
        return false;
    }
    fSum = fNew;
    return true;
}

} // namespace

float AddInOrder(float fSum, std::span<const float> speeds)
{
    while (!speeds.empty())
    {
        if (speeds.size() >= c_uBlock && AddBlock(fSum, speeds.data()))
        {
            speeds = speeds.subspan(c_uBlock);
            continue;
        }
        const std::span<const float> few = speeds.first(speeds.size() < c_uBlock ? speeds.size() : c_uBlock);
        for (const float fSpeed : few)
        {
            fSum += fSpeed;
        }
        speeds = speeds.subspan(few.size());
    }
    return fSum;
}
