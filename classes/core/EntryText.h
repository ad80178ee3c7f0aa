#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// True if an entry accepts this character; not for control characters. Digits are the ten ASCII digits, because digits
// of other scripts could not be read as numbers later.
bool EntryTakes(wchar_t cTyped, bool bDigitsOnly);

// The part of a pasted text that an entry accepts: its first line without the characters that the entry refuses,
// truncated to uRoom characters.
std::wstring FilterPastedText(std::wstring_view sText, bool bDigitsOnly, std::size_t uRoom);

// The number at the beginning of the text: blanks, an optional sign, digits. The rest is ignored; without digits the
// number is 0. The result is clamped to iLow..iHigh.
std::int64_t ReadLeadingNumber(std::wstring_view sText, std::int64_t iLow, std::int64_t iHigh);
