#pragma once

// Comparisons of doubles with a tolerance eps >= 0, which is on the side named by each. The expressions are part of
// the results of their callers: another form of the same inequality rounds differently.

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

// Rounds to iDigits decimal places (below zero: to tens, hundreds, ...), halves away from zero. The double nearest to
// the result is returned; numbers too large to have such places come back as they are.
double Dbl_Round(double dValue, int iDigits);
