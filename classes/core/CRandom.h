#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>

// Random numbers that are the same on every machine for the same seed: the 64-bit Mersenne Twister, whose numbers the
// C++ standard fixes, with our own mapping to floats and bytes (the standard's distributions differ among libraries).
// A copy continues with the same numbers as the original. Not for use by two threads at once.
class CRandom
{
public:
    // Seeded from the system: every object gives different numbers.
    CRandom();

    explicit CRandom(std::uint64_t uSeed);

    void SetSeed(std::uint64_t uSeed);
    std::uint64_t GetSeed() const { return m_uSeed; }

    // What the next numbers depend on: the words of the engine and, at the end, how many of them are used up.
    static constexpr std::size_t c_uStateWords = std::mt19937_64::state_size + 1;
    using CState = std::array<std::uint64_t, c_uStateWords>;

    CState GetState() const;

    // Continues with the numbers that followed when GetState returned this state; uSeed is the seed of that object.
    // False, and nothing changed, for words that are the state of no engine.
    bool SetState(std::uint64_t uSeed, const CState& state);

    // Uniform between the two finite bounds, in either order: fLow + u (fHigh - fLow) with u one of the 2^24 multiples
    // of 2^-24 in [0, 1), computed in double and rounded once. fLow can be drawn; fHigh only by rounding. If the bounds
    // are equal, the result is that value.
    float GetRandomNumber_Float(float fLow, float fHigh);

    // Uniform among the whole numbers from one bound to the other, both included.
    std::uint8_t GetRandomNumber_Uint8(std::uint8_t uLow, std::uint8_t uHigh);

private:
    std::uint64_t m_uSeed;
    std::mt19937_64 m_Engine;
};
