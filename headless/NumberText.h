#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers as text, the same on every machine: no locale is asked, the decimal mark is always a dot.

// Appends the shortest decimal text that reads back to the same bits.
void AppendFloat(std::string& sText, float value);

// With a fixed number of decimals.
std::string TextOfFixed(double value, int decimals);

// A whole number without sign, blanks or leading text; nothing where the text is anything else or does not fit.
std::optional<std::uint64_t> ParseWholeNumber(std::string_view sText);

// The text as it is shown in a message: in quotation marks, cut where it is long, without control characters.
std::string Quote(std::string_view sText);

// Reads a finite 32-bit float: an optional minus, digits with an optional dot, an optional exponent. Returns what is
// wrong with the text, empty when nothing is.
std::string ParseFiniteFloat(std::string_view sText, float& value);
