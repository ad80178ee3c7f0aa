#pragma once

#include <cstddef>
#include <string>

// True when more than three quarters of the log's room are used.
constexpr bool NeedsPruning(std::size_t uLength, std::size_t uCapacity)
{
    // Three quarters of q * 4 + r are 3 * q and three quarters of r: nothing can overflow.
    constexpr std::size_t uQuarters = 4;
    constexpr std::size_t uLimitInQuarters = 3;
    return uLength > uCapacity / uQuarters * uLimitInQuarters + uCapacity % uQuarters * uLimitInQuarters / uQuarters;
}

// Removes the oldest text so that the newest uKeep characters stay; a log that is not longer stays as it is. The
// log's storage is kept, so that appending goes on without allocating. Takes the mutex of the debug logs.
void PruneDebugLog(std::wstring& sLog, std::size_t uKeep);
