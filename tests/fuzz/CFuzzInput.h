#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// A fuzzer's bytes, taken apart into what a target needs. The form is text, words between blanks and line ends: so a
// finding can be read, shortened and kept by hand. Nothing is ever an error: what is missing is zero or empty.
class CFuzzInput
{
public:
    CFuzzInput(const std::uint8_t* pBytes, std::size_t uCount) : m_sText(reinterpret_cast<const char*>(pBytes), uCount)
    {
    }

    bool IsAtEnd() const;

    // The next word as a whole number; what does not fit becomes the nearest end of the range.
    int TakeInt();

    // The same, brought into low..high.
    int TakeInt(int low, int high);

    // The next word as strtod reads it, infinities and "not a number" included.
    double TakeDouble();

    // The rest of the line, one character per byte.
    std::wstring TakeLine();

private:
    std::string TakeWord();

    std::string_view m_sText;
};
