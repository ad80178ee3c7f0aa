#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

// How the bytes of a settings file stand for its characters.
enum class EnumIniEncoding : std::uint8_t
{
    Ansi, // one byte for each character
    Utf8, // the others with their mark
    Utf16LittleEndian,
    Utf16BigEndian
};

constexpr std::size_t c_uIniEncodingCount = 4;

// The bytes of a file with this text; Ansi needs a text of ASCII.
std::string EncodeIni(const std::u16string& sText, EnumIniEncoding eEncoding);

// Writes texts that are settings files for the most part, and the same ones for the same seed: sections and keys in
// letters of either case, some of them twice, missing or broken, every line end, blanks, comments, quotation marks.
class CIniTextWriter
{
public:
    explicit CIniTextWriter(std::uint32_t uSeed) : m_Random(uSeed) {}

    // bAscii: without the letters that need another encoding than Ansi.
    std::u16string Write(bool bAscii);

private:
    std::u16string MakeLine(bool bAscii);
    std::u16string MakeValue(bool bAscii);
    std::u16string MakeNoise(bool bAscii);
    std::u16string ChangeCase(std::u16string sText);

    template<class T>
    const typename T::value_type& Choose(const T& choices)
    {
        return choices[Draw(choices.size())];
    }

    // 0..uCount-1. The distributions of the standard library give other numbers in another build.
    std::size_t Draw(std::size_t uCount) { return m_Random() % uCount; }

    std::mt19937 m_Random;
};
