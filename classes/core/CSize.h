#pragma once

// A width and a height in the unit of T.
template<class T>
struct CSize
{
    T cx{};
    T cy{};

    bool operator==(const CSize&) const = default;
};
