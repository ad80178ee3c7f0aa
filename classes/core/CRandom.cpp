#include "classes/core/CRandom.h"

#include <algorithm>
#include <locale>
#include <sstream>

namespace
{

constexpr unsigned c_uBitsOfEngine = 64;

// A float holds every multiple of 2^-24 in [0, 1) exactly.
constexpr unsigned c_uBitsOfFraction = 24;
constexpr double c_dFractionStep = 1.0 / (1 << c_uBitsOfFraction);

// With this many bits, every whole number in a range of at most 256 is equally likely to within 2^-24.
constexpr unsigned c_uBitsOfChoice = 32;

std::uint64_t DrawSeedFromSystem()
{
    std::random_device device;
    static_assert(std::random_device::min() == 0 && std::random_device::max() == 0xFFFFFFFF);
    return (static_cast<std::uint64_t>(device()) << c_uBitsOfChoice) | device();
}

} // namespace

CRandom::CRandom() : CRandom(DrawSeedFromSystem()) {}

CRandom::CRandom(std::uint64_t uSeed) : m_uSeed(uSeed), m_Engine(uSeed) {}

void CRandom::SetSeed(std::uint64_t uSeed)
{
    m_uSeed = uSeed;
    m_Engine.seed(uSeed);
}

// The standard gives the state of an engine only as text. The library writes the words, then the number of used ones.
CRandom::CState CRandom::GetState() const
{
    std::stringstream text;
    text.imbue(std::locale::classic());
    text << m_Engine;
    CState state{};
    for (std::uint64_t& uWord : state)
    {
        text >> uWord;
    }
    return state;
}

bool CRandom::SetState(std::uint64_t uSeed, const CState& state)
{
    const bool bAnyBit = std::any_of(state.begin(), state.end() - 1, [](std::uint64_t uWord) { return uWord != 0; });
    // The library trusts the number of used words. An engine without a bit would draw the same number for ever.
    if (!bAnyBit || state.back() > std::mt19937_64::state_size)
    {
        return false;
    }
    std::stringstream text;
    text.imbue(std::locale::classic());
    for (const std::uint64_t uWord : state)
    {
        text << uWord << ' ';
    }
    text >> m_Engine;
    m_uSeed = uSeed;
    return true;
}

float CRandom::GetRandomNumber_Float(float fLow, float fHigh)
{
    // In double, the difference of two floats cannot overflow. The sum rounded to float cannot lie outside the bounds,
    // because rounding never passes a float and both bounds are floats.
    const double dLow = static_cast<double>(fLow);
    const double dHigh = static_cast<double>(fHigh);
    const double dFraction = static_cast<double>(m_Engine() >> (c_uBitsOfEngine - c_uBitsOfFraction)) * c_dFractionStep;
    return static_cast<float>(dLow + dFraction * (dHigh - dLow));
}

std::uint8_t CRandom::GetRandomNumber_Uint8(std::uint8_t uLow, std::uint8_t uHigh)
{
    const auto [uSmallest, uLargest] = std::minmax(uLow, uHigh);
    const std::uint64_t uChoices = static_cast<std::uint64_t>(uLargest) - uSmallest + 1;
    const std::uint64_t uDrawn = m_Engine() >> (c_uBitsOfEngine - c_uBitsOfChoice);
    return static_cast<std::uint8_t>(uSmallest + ((uDrawn * uChoices) >> c_uBitsOfChoice));
}
