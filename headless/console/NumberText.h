#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers as text, the same on every machine: no locale is used, the decimal mark is always a dot.

// Appends the shortest decimal text that reads back to the same bits.
void AppendFloat(std::string& sText, float value);
void AppendDouble(std::string& sText, double value);

// With a fixed number of decimals.
std::string TextOfFixed(double value, int decimals);

// A whole number of digits only; nullopt for any other text and for a number beyond 64 bits.
std::optional<std::uint64_t> ParseWholeNumber(std::string_view sText);

// The text with every byte that a terminal would not show as a letter as \xNN: control characters, bytes that are no
// UTF-8, marks that turn the direction of the letters around. A file name may hold any of them.
std::string EscapeUnprintable(std::string_view sText);

// The text for a message: in quotation marks, escaped, shortened if long.
std::string Quote(std::string_view sText);

// Reads a finite 32-bit float: an optional minus, digits with an optional dot, an optional exponent. Returns the error
// text, empty on success.
std::string ParseFiniteFloat(std::string_view sText, float& value);
