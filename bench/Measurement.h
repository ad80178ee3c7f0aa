#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

// Milliseconds per call: the average over that many calls of action (at least one).
template<class Action>
double MeasureMilliseconds(int calls, Action action)
{
    const auto start = std::chrono::steady_clock::now();
    for (int call = 0; call < calls; ++call)
    {
        action();
    }
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count() / calls;
}

// The median, the upper one of an even number of values. The list must not be empty.
inline double GetMedian(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
