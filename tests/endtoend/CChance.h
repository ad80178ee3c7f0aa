#pragma once

#include <windows.h>

#include <cstdint>
#include <random>

// Random choices of a simulated user. The seed decides every choice, so that a run can be repeated.
class CChance
{
public:
    explicit CChance(std::uint32_t uSeed) : m_random(uSeed) {}

    // A number from `iLow` to `iHigh`, both included.
    int Choose(int iLow, int iHigh);

    // A point of the window's client area that is on the screen, in screen pixels.
    POINT ChoosePoint(HWND hWindow);

    // An element of a container that is not empty.
    template<class Container>
    auto ChooseFrom(const Container& container)
    {
        return container[static_cast<std::size_t>(Choose(0, static_cast<int>(container.size()) - 1))];
    }

private:
    std::mt19937 m_random;
};
