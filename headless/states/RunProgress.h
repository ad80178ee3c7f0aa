#pragma once

#include <cstdint>
#include <map>
#include <string>

// How far something that observes a run has come.
struct CObserverProgress
{
    std::uint64_t next{}; // the first iteration that it has not observed whole
    std::string bytes;    // its own, see IRunObserver::GetProgress

    bool operator==(const CObserverProgress&) const = default;
};

// By the option that asks for the observer, such as "--stats".
using CRunProgress = std::map<std::string, CObserverProgress>;
