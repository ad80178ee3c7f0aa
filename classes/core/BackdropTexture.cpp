#include "classes/core/BackdropTexture.h"

#include <algorithm>
#include <cstddef>

namespace
{
// The middle tone; white text on it has a contrast of about 12 : 1.
constexpr int c_iRed = 38;
constexpr int c_iGreen = 58;
constexpr int c_iBlue = 64;
// How far the weave and the grain move a channel from the middle tone.
constexpr int c_iWeaveDepth = 2;
constexpr int c_iGrainDepth = 3;
constexpr int c_iWeavePeriod = 8; // divides the texture's length, so that the edges fit
constexpr int c_iRedShift = 16;
constexpr int c_iGreenShift = 8;

static_assert(c_iBackdropTextureLength % c_iWeavePeriod == 0);

// A small linear congruential generator. It is good enough for the grain and gives the same numbers everywhere.
std::uint32_t NextGrain(std::uint32_t& uState)
{
    constexpr std::uint32_t c_uMultiplier = 1664525u;
    constexpr std::uint32_t c_uIncrement = 1013904223u;
    constexpr int c_iGoodBits = 24; // the low bits of such a generator repeat too soon
    uState = uState * c_uMultiplier + c_uIncrement;
    return uState >> c_iGoodBits;
}

int WeaveAt(int x, int y)
{
    const int iPhase = (x + y) % c_iWeavePeriod;
    return iPhase < c_iWeavePeriod / 2 ? c_iWeaveDepth : -c_iWeaveDepth;
}

std::uint32_t Channel(int iValue, int iShift)
{
    constexpr int c_iMaxChannel = 255;
    return static_cast<std::uint32_t>(std::clamp(iValue, 0, c_iMaxChannel)) << iShift;
}
} // namespace

std::vector<std::uint32_t> MakeBackdropTexture()
{
    constexpr std::size_t c_uLength = static_cast<std::size_t>(c_iBackdropTextureLength);
    std::vector<std::uint32_t> pixels(c_uLength * c_uLength);
    std::uint32_t uState = 1;
    std::size_t uIndex = 0;
    for (int y = 0; y < c_iBackdropTextureLength; ++y)
    {
        for (int x = 0; x < c_iBackdropTextureLength; ++x)
        {
            const int iGrain = static_cast<int>(NextGrain(uState) % (2 * c_iGrainDepth + 1)) - c_iGrainDepth;
            const int iOffset = WeaveAt(x, y) + iGrain;
            pixels[uIndex++] = Channel(c_iRed + iOffset, c_iRedShift) | Channel(c_iGreen + iOffset, c_iGreenShift) |
                               Channel(c_iBlue + iOffset, 0);
        }
    }
    return pixels;
}
