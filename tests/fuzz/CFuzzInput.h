#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Splits a fuzzer's bytes into the values that a target needs. The format is text, words between blanks and line ends,
// so that a person can read and shorten a finding. Nothing is an error: a missing number is 0, a missing line is empty.
class CFuzzInput
{
public:
    CFuzzInput(const std::uint8_t* pBytes, std::size_t uCount) : m_sText(reinterpret_cast<const char*>(pBytes), uCount)
    {
    }

    bool IsAtEnd() const;

    // The next word as a whole number; saturates.
    int TakeInt();

    // The same, clamped to low..high.
    int TakeInt(int low, int high);

    // The next word as strtod reads it, including infinities and NaN.
    double TakeDouble();

    // The rest of the line, one character per byte.
    std::wstring TakeLine();

private:
    std::string TakeWord();

    std::string_view m_sText;
};
