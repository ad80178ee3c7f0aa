#include "classes/core/PrintfFormat.h"

#include "classes/core/CWString.h"
#include "tests/classes/core/CCommaLocale.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace
{

template<class... A>
std::wstring Format(std::wstring_view sFormat, const A&... args)
{
    const std::array<CPrintfArgument, sizeof...(A)> arguments{CPrintfArgument(args)...};
    return FormatPrintf(sFormat, arguments);
}

constexpr std::wstring_view c_sStatistics =
    L"Iter = %I64u   %.2f ms = %.2f FPS     velocity: min = %.3f   max = %.3f   tot = %.3f   avg = %.3f   "
    L"collided = %.2f%%";

TEST(PrintfFormat, TheStatisticsLineComesOutLetterForLetter)
{
    EXPECT_EQ(
        Format(c_sStatistics, std::uint64_t{123}, 0.125F, 1000.0F / 0.125F, 0.001F, 2.5F, 256.0625F, 1.0002F, 12.345),
        L"Iter = 123   0.12 ms = 8000.00 FPS     velocity: min = 0.001   max = 2.500   tot = 256.062   "
        L"avg = 1.000   collided = 12.35%");
}

TEST(PrintfFormat, TheStatisticsLineTakesDoublesAndTheLargestNumbers)
{
    EXPECT_EQ(Format(c_sStatistics, std::numeric_limits<std::uint64_t>::max(), 16.66667, 59.99999, 0.0, 1e6, -0.0, 1.0,
                     150.0),
              L"Iter = 18446744073709551615   16.67 ms = 60.00 FPS     velocity: min = 0.000   max = 1000000.000   "
              L"tot = -0.000   avg = 1.000   collided = 150.00%");
}

TEST(PrintfFormat, LengthModifiersOfBothFamiliesAreUnderstood)
{
    constexpr std::int64_t llMin = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(Format(L"%I64i %I64d %lli", llMin, llMin, llMin),
              L"-9223372036854775808 -9223372036854775808 -9223372036854775808");
    EXPECT_EQ(Format(L"%I64x|%20I64u|%-5I64u|%05I64u", std::uint64_t{255}, std::uint64_t{1}, std::uint64_t{2},
                     std::uint64_t{3}),
              L"ff|                   1|2    |00003");
    EXPECT_EQ(Format(L"%I32u %hhu %zu", 7U, std::uint8_t{8}, std::size_t{9}), L"7 8 9");
}

TEST(PrintfFormat, TextThatLooksLikeALengthModifierStaysText)
{
    EXPECT_EQ(Format(L"I64 %%I64u 100%% %i%%I64", 5), L"I64 %I64u 100% 5%I64");
    EXPECT_EQ(Format(L"%sI64", L"x"), L"xI64");
}

TEST(PrintfFormat, EveryKindOfWideTextCanBeAnArgument)
{
    const wchar_t* sNull = nullptr;
    EXPECT_EQ(Format(L"%s|%s|%s|%s", L"a", std::wstring(L"b"), CWString(L"c"), std::wstring_view(L"d")), L"a|b|c|d");
    EXPECT_EQ(Format(L"%s", sNull), L"(null)");
    EXPECT_EQ(Format(L"%5s|%-5s|%.2s|%c", L"ab", L"cd", L"efgh", L'x'), L"   ab|cd   |ef|x");
    EXPECT_EQ(Format(L"%s", L"\u0661\u00FC"), L"\u0661\u00FC");
}

TEST(PrintfFormat, HexadecimalPrintsTheBitsOfTheArgumentsWidth)
{
    EXPECT_EQ(Format(L"0x%x", static_cast<std::int32_t>(0x80004005)), L"0x80004005");
    EXPECT_EQ(Format(L"0x%08X", 0xABCDEFU), L"0x00ABCDEF");
    EXPECT_EQ(Format(L"%I64x", std::int64_t{-1}), L"ffffffffffffffff");
}

TEST(PrintfFormat, EveryIntegerTypeKeepsItsValue)
{
    EXPECT_EQ(Format(L"%i %i %u %u", std::int8_t{-1}, std::int16_t{-2}, std::uint8_t{255}, std::uint16_t{65535}),
              L"-1 -2 255 65535");
    EXPECT_EQ(Format(L"%li %lu", -3L, 4UL), L"-3 4");
    EXPECT_EQ(Format(L"%i %i", true, false), L"1 0");
}

TEST(PrintfFormat, WidthAndPrecisionMayBeArguments)
{
    EXPECT_EQ(Format(L"%*i|%.*f", 4, 7, 1, 2.25), L"   7|2.2");
}

TEST(PrintfFormat, FloatsPrintAsTheCLibraryPrintsThem)
{
    constexpr double values[] = {0.0,
                                 -0.0,
                                 1.0 / 3,
                                 0.5,
                                 1.5,
                                 2.5,
                                 0.005,
                                 1e-10,
                                 123456789.125,
                                 1e15,
                                 1e22,
                                 99.995,
                                 0.125,
                                 1.005,
                                 2.675,
                                 1e100,
                                 std::numeric_limits<double>::max(),
                                 -12.75,
                                 std::numeric_limits<double>::denorm_min()};
    for (const double dValue : values)
    {
        std::array<char, 2048> expected{};
        ASSERT_GT(
            std::snprintf(expected.data(), expected.size(), "%.2f %.3f %10.1f %e", dValue, dValue, dValue, dValue), 0);
        const std::string sExpected(expected.data());
        EXPECT_EQ(Format(L"%.2f %.3f %10.1f %e", dValue, dValue, dValue, dValue),
                  std::wstring(sExpected.begin(), sExpected.end()));
    }
}

TEST(PrintfFormat, TheLocaleDoesNotChangeTheDecimalPoint)
{
    const CCommaLocale locale;
    EXPECT_EQ(Format(L"%.2f %i", 1234.5, 1234567), L"1234.50 1234567");
}

TEST(PrintfFormat, AFormatThatDoesNotFitItsArgumentsThrows)
{
    EXPECT_THROW(Format(L"%i"), std::runtime_error);
    EXPECT_THROW(Format(L"%s %s", L"a"), std::runtime_error);
    EXPECT_THROW(Format(L"%d", L"text"), std::runtime_error);
    EXPECT_THROW(Format(L"%*i", L"text", 1), std::runtime_error);
    EXPECT_THROW(Format(L"100%"), std::runtime_error);
    EXPECT_THROW(Format(L"%"), std::runtime_error);
    EXPECT_THROW(Format(L"%I64", 1), std::runtime_error);
    EXPECT_THROW(Format(L"%99999999999i", 1), std::runtime_error);
}

TEST(PrintfFormat, SurplusArgumentsAreIgnored)
{
    EXPECT_EQ(Format(L"%i", 1, 2, L"three"), L"1");
}

TEST(PrintfFormat, NarrowTextDoesNotCompile)
{
    static_assert(!std::is_constructible_v<CPrintfArgument, const char*>);
    static_assert(!std::is_constructible_v<CPrintfArgument, std::string>);
}

} // namespace
