#pragma once

// Comparisons of doubles with a tolerance eps >= 0. IsBigger and IsSmaller need a difference above eps; IsBiggerEqual
// and the range accept values up to eps outside. The expressions affect the results of their callers: another form of
// the same inequality would round differently.

constexpr bool Dbl_IsBigger(double dValue, double dReference, double dEps)
{
    return dValue - dReference > dEps;
}

constexpr bool Dbl_IsSmaller(double dValue, double dReference, double dEps)
{
    return dReference - dValue > dEps;
}

constexpr bool Dbl_IsBiggerEqual(double dValue, double dReference, double dEps)
{
    return dValue - dReference >= -dEps;
}

constexpr bool Dbl_IsInRangeInclusive(double dValue, double dLow, double dHigh, double dEps)
{
    return dValue - dLow >= -dEps && dValue - dHigh <= dEps;
}

// Rounds to iDigits decimal places (below zero: to tens, hundreds, ...), halves away from zero. Returns the double
// nearest to the result. Numbers too large to have such places are returned unchanged.
double Dbl_Round(double dValue, int iDigits);
