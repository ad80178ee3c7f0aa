#pragma once

// A place in the plane: x to the right, y downwards.
template<class T>
struct CPoint
{
    T x{};
    T y{};

    bool operator==(const CPoint&) const = default;
};
