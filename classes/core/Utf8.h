#pragma once

#include <string>
#include <string_view>

// Wide text of UTF-8 bytes: UTF-16 where wchar_t has 16 bits, else one code point per character. Every invalid byte
// becomes one U+FFFD, so that nothing is lost silently and nothing is refused.
std::wstring WideFromUtf8(std::string_view sText);

// UTF-8 of wide text. Lone surrogates and values above U+10FFFF become U+FFFD.
std::string Utf8FromWide(std::wstring_view sText);

// Removes one code point from the front of UTF-8 text, which is not empty, and returns it; a byte that belongs to none
// gives U+FFFD.
char32_t TakeFromUtf8(std::string_view& sText);
