#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// Reads decimal numbers as users type them, in the simplest way: it splits the text from its ends, and the C library
// converts it. It is slow but obviously right; the parser of the program must agree with it.

// True if the text is a number.
bool IsPlainNumber(std::wstring_view sText);

// The number, correctly rounded; saturates at the largest double. Empty if the text is not a number.
std::optional<double> ReadPlainNumber(std::wstring_view sText);

// For a text that is not a number: the index of the first character after which no continuation is a number, or the
// length if some continuation is one.
std::size_t FindPlainErrorPosition(std::wstring_view sText);

// The count of digits before the exponent, including zeros.
std::size_t CountPlainDigits(std::wstring_view sText);
