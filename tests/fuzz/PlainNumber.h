#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// Decimal numbers as users type them, read in the plainest way: the text is cut up from its ends, and the C library
// converts it. Slow, and right without thinking; the parser of the program must agree with it.

// True if the text is a number.
bool IsPlainNumber(std::wstring_view sText);

// The number, correctly rounded; beyond the range of doubles the largest one of its sign. Nothing for other texts.
std::optional<double> ReadPlainNumber(std::wstring_view sText);

// Index of the first character of a text, that is no number, after which no continuation makes it one; the length of a
// text that only ends too early.
std::size_t FindPlainErrorPosition(std::wstring_view sText);

// How many digits a number has before its exponent, zeros included.
std::size_t CountPlainDigits(std::wstring_view sText);
