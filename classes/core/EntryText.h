#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Whether an entry takes this character. Control characters are not meant here. Digits are the ten ASCII ones: those
// of other scripts would not be read as numbers later.
bool EntryTakes(wchar_t cTyped, bool bDigitsOnly);

// What becomes of a text that is pasted into an entry: its first line without the characters that the entry does not
// take, cut to uRoom characters.
std::wstring FilterPastedText(std::wstring_view sText, bool bDigitsOnly, std::size_t uRoom);

// The number at the beginning of the text: blanks, an optional sign, digits; what follows is ignored, and without
// digits it is 0. Kept between iLow and iHigh.
std::int64_t ReadLeadingNumber(std::wstring_view sText, std::int64_t iLow, std::int64_t iHigh);
