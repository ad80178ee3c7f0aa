#pragma once

#include <cstddef>
#include <string>

// True if the log (length and capacity in characters) is more than three quarters full.
constexpr bool NeedsPruning(std::size_t uLength, std::size_t uCapacity)
{
    // With capacity = 4 * q + r, three quarters of it are 3 * q + 3 * r / 4: this cannot overflow.
    constexpr std::size_t uQuarters = 4;
    constexpr std::size_t uLimitInQuarters = 3;
    return uLength > uCapacity / uQuarters * uLimitInQuarters + uCapacity % uQuarters * uLimitInQuarters / uQuarters;
}

// Removes the oldest text, so that the newest uKeep characters stay; does nothing if the log is not longer. Keeps the
// storage of the log, so that later appends allocate nothing. Locks the mutex of the debug logs.
void PruneDebugLog(std::wstring& sLog, std::size_t uKeep);
