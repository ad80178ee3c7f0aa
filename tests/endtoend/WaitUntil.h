#pragma once

#include <windows.h>

#include <chrono>
#include <stdexcept>
#include <string>

// Evaluates `condition` every few milliseconds until its result is true, and returns the result. Throws
// std::runtime_error with `sWhat` when the time is over.
template<class F>
auto WaitUntil(const std::string& sWhat, std::chrono::milliseconds patience, F&& condition)
{
    constexpr DWORD c_uPollMilliseconds = 10;
    const auto deadline = std::chrono::steady_clock::now() + patience;
    for (;;)
    {
        if (auto result = condition())
        {
            return result;
        }
        if (std::chrono::steady_clock::now() >= deadline)
        {
            throw std::runtime_error("waited " + std::to_string(patience.count()) + " ms in vain for " + sWhat);
        }
        Sleep(c_uPollMilliseconds);
    }
}
