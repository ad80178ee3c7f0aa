#include "tests/settings/CIniTextWriter.h"

#include "classes/core/Utf8.h"

#include <array>
#include <string_view>

namespace
{

using CTexts = std::u16string_view;

constexpr std::array<CTexts, 7> c_LineEnds = {u"\n", u"\r\n", u"\r", u"\n\n", u"\r\n\r\n", u"\r\r", u"\n\r"};
constexpr std::array<CTexts, 9> c_Blanks = {u"", u"", u"", u"", u" ", u"\t", u" \t ", u"\v\f", u"\x1A"};
constexpr std::array<CTexts, 4> c_Keys = {u"Tot_atoms", u"World_width", u"Atom_colour_1_factor", u"Atoms_min_radius"};
constexpr std::array<CTexts, 8> c_Headers = {u"[Settings]", u"[Settings]", u"[Settings]",  u"[Other]",
                                             u"[Settings",  u"[ Settings", u"[Settings]]", u"[]"};
constexpr std::array<CTexts, 24> c_Values = {
    u"",       u"0",      u"42",         u"-5",         u"+7",    u"007",     u"12abc", u"3.9",
    u"0x1F",   u"0o17",   u"0b11",       u"0X1F",       u"1e3",   u"abc",     u"50%",   u"0.75 ; slow",
    u"\"42\"", u"' 42 '", u"4294967295", u"4294967296", u"\"42'", u"\"\"5\"", u"=5",    u"99999999999999999999"};
constexpr CTexts c_sAsciiNoise = u" \t=[];#'\"%+-.0123456789abcxyzABCXYZ_";
// U+017F and U+212A become an ASCII letter when their case changes.
constexpr CTexts c_sWideNoise = u"\u00E4\u00DF\u017F\u212A\u0130\u0131\u20AC\u2603\u00A0\u2028\u3000";
constexpr std::size_t c_uMostLines = 14;
constexpr std::size_t c_uMostNoise = 24;
// Around 15 and 29, to which texts and numbers are cut, but not these themselves: where a value in quotation marks just
// fits, Wine drops its last character as well.
constexpr std::array<std::size_t, 7> c_DigitCounts = {1, 10, 14, 16, 28, 30, 36};
constexpr unsigned c_uByteBits = 8;

char ByteOf(char16_t character, unsigned uByte)
{
    return static_cast<char>(static_cast<unsigned char>(character >> (uByte * c_uByteBits)));
}

std::string EncodeUtf16(const std::u16string& sText, unsigned uFirst)
{
    std::string sBytes;
    for (const char16_t character : u'\uFEFF' + sText)
    {
        sBytes += ByteOf(character, uFirst);
        sBytes += ByteOf(character, 1 - uFirst);
    }
    return sBytes;
}

} // namespace

std::string EncodeIni(const std::u16string& sText, EnumIniEncoding eEncoding)
{
    switch (eEncoding)
    {
    case EnumIniEncoding::Ansi:
        return {sText.begin(), sText.end()};
    case EnumIniEncoding::Utf8:
        return "\xEF\xBB\xBF" + Utf8FromWide(std::wstring(sText.begin(), sText.end()));
    case EnumIniEncoding::Utf16LittleEndian:
        return EncodeUtf16(sText, 0);
    case EnumIniEncoding::Utf16BigEndian:
        return EncodeUtf16(sText, 1);
    }
    return {};
}

std::u16string CIniTextWriter::Write(bool bAscii)
{
    const CTexts sEnd = Choose(c_LineEnds);
    const bool bMixed = Draw(3) == 0;
    std::u16string sText;
    if (Draw(4) != 0)
    {
        sText.append(Choose(c_Headers)).append(sEnd);
    }
    for (std::size_t uLines = 1 + Draw(c_uMostLines); uLines > 0; --uLines)
    {
        sText += MakeLine(bAscii);
        sText += bMixed ? Choose(c_LineEnds) : sEnd;
    }
    if (Draw(3) == 0)
    {
        sText += MakeLine(bAscii); // a last line without its end
    }
    return sText;
}

std::u16string CIniTextWriter::MakeLine(bool bAscii)
{
    std::u16string sLine(Choose(c_Blanks));
    switch (Draw(12))
    {
    case 0:
        return sLine + ChangeCase(std::u16string(Choose(c_Headers))).append(Choose(c_Blanks));
    case 1:
        return sLine + MakeNoise(bAscii);
    case 2:
        sLine += u';';
        break;
    default:
        break;
    }
    sLine += ChangeCase(std::u16string(Choose(c_Keys)));
    sLine += Choose(c_Blanks);
    sLine += Draw(10) == 0 ? u"" : u"=";
    sLine += Choose(c_Blanks);
    sLine += MakeValue(bAscii);
    return sLine.append(Choose(c_Blanks));
}

std::u16string CIniTextWriter::MakeValue(bool bAscii)
{
    switch (Draw(6))
    {
    case 0:
        return MakeNoise(bAscii);
    case 1:
    {
        const std::u16string sQuote(Draw(3), u'"');
        return sQuote + std::u16string(Choose(c_DigitCounts), u'1') + sQuote;
    }
    default:
        return std::u16string(Choose(c_Values));
    }
}

std::u16string CIniTextWriter::MakeNoise(bool bAscii)
{
    std::u16string sNoise;
    for (std::size_t uLeft = Draw(c_uMostNoise); uLeft > 0; --uLeft)
    {
        sNoise += !bAscii && Draw(4) == 0 ? Choose(c_sWideNoise) : Choose(c_sAsciiNoise);
    }
    return sNoise;
}

std::u16string CIniTextWriter::ChangeCase(std::u16string sText)
{
    if (Draw(3) != 0)
    {
        return sText;
    }
    for (char16_t& character : sText)
    {
        const bool bLetter = (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z');
        constexpr char16_t c_uCaseBit = 0x20;
        if (bLetter && Draw(2) == 0)
        {
            character = static_cast<char16_t>(character ^ c_uCaseBit);
        }
    }
    return sText;
}
