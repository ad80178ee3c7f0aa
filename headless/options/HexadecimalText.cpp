#include "headless/options/HexadecimalText.h"

#include <array>
#include <charconv>

namespace
{

constexpr int c_iHexadecimal = 16;
constexpr std::size_t c_uHashDigits = 16;
constexpr std::size_t c_uColourDigits = 6;

std::string TextOfHexadecimal(std::uint64_t uValue, std::size_t uDigits)
{
    std::array<char, c_uHashDigits> buffer{};
    const std::to_chars_result result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), uValue, c_iHexadecimal);
    const std::string sText(buffer.data(), result.ptr);
    return std::string(uDigits - sText.size(), '0') + sText;
}

} // namespace

std::string TextOfColour(ColourRef colour)
{
    return TextOfHexadecimal(MakeColour(GetBlue(colour), GetGreen(colour), GetRed(colour)), c_uColourDigits);
}

std::string TextOfHash(std::uint64_t uHash)
{
    return TextOfHexadecimal(uHash, c_uHashDigits);
}
