#include "classes/core/StringToNumber.h"

#include "tests/classes/core/CCommaLocale.h"

#include <array>
#include <cmath>
#include <cstring>
#include <cwchar>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace
{

constexpr double c_dLargest = std::numeric_limits<double>::max();
constexpr double c_dUntouched = -12345.0;
constexpr std::size_t c_uMegabyte = 1'000'000;

// Parses with both overloads, which must agree; returns the double.
bool Read(std::wstring_view sText, double* pOut)
{
    CBigFloat big;
    const bool bDouble = StringToNumber(sText, pOut, EnumNumberType::Double, false, nullptr);
    EXPECT_EQ(StringToNumber(sText, &big, false, nullptr), bDouble);
    if (bDouble)
    {
        EXPECT_EQ(big.ToDouble(), *pOut);
    }
    return bDouble;
}

double Value(std::wstring_view sText)
{
    double dValue = c_dUntouched;
    EXPECT_TRUE(Read(sText, &dValue)) << std::string(sText.begin(), sText.end());
    return dValue;
}

unsigned ErrorPosition(std::wstring_view sText)
{
    double dValue = c_dUntouched;
    unsigned uPosition = std::numeric_limits<unsigned>::max();
    EXPECT_FALSE(StringToNumber(sText, &dValue, EnumNumberType::Double, false, &uPosition));
    CBigFloat big;
    unsigned uBigPosition = 0;
    EXPECT_FALSE(StringToNumber(sText, &big, false, &uBigPosition));
    EXPECT_EQ(uPosition, uBigPosition);
    return uPosition;
}

TEST(StringToNumber, DecimalNumbersAreRead)
{
    EXPECT_EQ(Value(L"12.34"), 12.34);
    EXPECT_EQ(Value(L"0"), 0.0);
    EXPECT_EQ(Value(L".5"), 0.5);
    EXPECT_EQ(Value(L"5."), 5.0);
    EXPECT_EQ(Value(L"+7"), 7.0);
    EXPECT_EQ(Value(L"-7.25"), -7.25);
    EXPECT_EQ(Value(L"000012.500"), 12.5);
    EXPECT_EQ(Value(L"0.000125"), 0.000125);
    EXPECT_EQ(Value(L"99999999999999999999"), 99999999999999999999.0);
}

TEST(StringToNumber, ExponentsAreRead)
{
    EXPECT_EQ(Value(L"1e3"), 1000.0);
    EXPECT_EQ(Value(L"1E+3"), 1000.0);
    EXPECT_EQ(Value(L"1.5e-3"), 0.0015);
    EXPECT_EQ(Value(L".5e1"), 5.0);
    EXPECT_EQ(Value(L"5.e1"), 50.0);
    EXPECT_EQ(Value(L"1e0000000000000000000000003"), 1000.0);
    EXPECT_EQ(Value(L"1e300"), 1e300);
}

TEST(StringToNumber, ATrailingPercentSignDoesNotChangeTheValue)
{
    EXPECT_EQ(Value(L"12.34%"), 12.34);
    EXPECT_EQ(Value(L"0.0000001%"), 0.0000001);
    EXPECT_EQ(Value(L"150%"), 150.0);
    EXPECT_EQ(Value(L"-5e-1%"), -0.5);
    EXPECT_EQ(Value(L" 5% "), 5.0);
}

TEST(StringToNumber, SurroundingBlanksAreSkipped)
{
    EXPECT_EQ(Value(L" \t 42 \t"), 42.0);
    EXPECT_EQ(Value(L"  -1"), -1.0);
}

TEST(StringToNumber, MinusZeroIsNotBelowZero)
{
    EXPECT_EQ(Value(L"-0"), 0.0);
    EXPECT_TRUE(std::signbit(Value(L"-0")));
    CBigFloat big;
    EXPECT_TRUE(StringToNumber(L"-0", &big, false, nullptr));
    EXPECT_FALSE(big < 0);
}

TEST(StringToNumber, OtherTextsAreRefused)
{
    for (const std::wstring_view sText :
         {L"",      L" ",     L"%",     L" %",   L"1,5", L"0x10", L"nan",     L"inf",  L"-inf",   L"NaN",   L"infinity",
          L"12abc", L"abc",   L"1 2",   L"5%%",  L"5 %", L".",    L"-.",      L"+",    L"-",      L"+-1",   L"--1",
          L"- 1",   L"1e",    L"1e+",   L"1e 5", L"e5",  L".e5",  L"1.2.3",   L"1..2", L"1e5.5",  L"1e5e5", L"%5",
          L"5%5",   L"1_000", L"1'000", L"$5",   L"5f",  L"1d5",  L"\u22125", L"5\n",  L"\u00A05"})
    {
        double dValue = c_dUntouched;
        EXPECT_FALSE(Read(sText, &dValue)) << std::string(sText.begin(), sText.end());
        EXPECT_EQ(dValue, c_dUntouched);
    }
}

TEST(StringToNumber, DigitsOfOtherScriptsAreRefused)
{
    double dValue = c_dUntouched;
    EXPECT_FALSE(Read(L"\u0661\u0662", &dValue));
    EXPECT_FALSE(Read(L"\uFF11", &dValue));
    EXPECT_EQ(ErrorPosition(L"1\u0661"), 1U);
}

TEST(StringToNumber, AZeroCharacterDoesNotEndTheText)
{
    double dValue = c_dUntouched;
    EXPECT_FALSE(Read(std::wstring_view(L"12\0", 3), &dValue));
    EXPECT_FALSE(Read(std::wstring_view(L"1\0002", 3), &dValue));
    EXPECT_EQ(ErrorPosition(std::wstring_view(L"12\0", 3)), 2U);
}

TEST(StringToNumber, TheErrorPositionIsTheIndexOfTheFirstWrongCharacter)
{
    EXPECT_EQ(ErrorPosition(L""), 0U);
    EXPECT_EQ(ErrorPosition(L"%"), 0U);
    EXPECT_EQ(ErrorPosition(L"1,5"), 1U);
    EXPECT_EQ(ErrorPosition(L"0x10"), 1U);
    EXPECT_EQ(ErrorPosition(L"1 2"), 2U);
    EXPECT_EQ(ErrorPosition(L"5%%"), 2U);
    EXPECT_EQ(ErrorPosition(L"12abc"), 2U);
    EXPECT_EQ(ErrorPosition(L"  x"), 2U);
}

TEST(StringToNumber, TheErrorPositionOfATextThatEndsTooEarlyIsItsLength)
{
    EXPECT_EQ(ErrorPosition(L"-"), 1U);
    EXPECT_EQ(ErrorPosition(L"1e"), 2U);
    EXPECT_EQ(ErrorPosition(L"1e-"), 3U);
    EXPECT_EQ(ErrorPosition(L"."), 1U);
    EXPECT_EQ(ErrorPosition(L"   "), 3U);
}

TEST(StringToNumber, ASuccessLeavesTheErrorPositionUnchanged)
{
    double dValue = 0.0;
    unsigned uPosition = 77;
    EXPECT_TRUE(StringToNumber(L"1", &dValue, EnumNumberType::Double, false, &uPosition));
    EXPECT_EQ(uPosition, 77U);
}

TEST(StringToNumber, AFailureClearsTheResultOnlyOnRequest)
{
    double dValue = c_dUntouched;
    EXPECT_FALSE(StringToNumber(L"x", &dValue, EnumNumberType::Double, false, nullptr));
    EXPECT_EQ(dValue, c_dUntouched);
    EXPECT_FALSE(StringToNumber(L"x", &dValue, EnumNumberType::Double, true, nullptr));
    EXPECT_EQ(dValue, 0.0);

    CBigFloat big(c_dUntouched);
    EXPECT_FALSE(StringToNumber(L"x", &big, false, nullptr));
    EXPECT_EQ(big.ToDouble(), c_dUntouched);
    EXPECT_FALSE(StringToNumber(L"x", &big, true, nullptr));
    EXPECT_TRUE(big == 0);
}

TEST(StringToNumber, ValuesOutsideTheRangeOfDoublesSaturate)
{
    EXPECT_EQ(Value(L"1e400"), c_dLargest);
    EXPECT_EQ(Value(L"-1e400"), -c_dLargest);
    EXPECT_EQ(Value(L"1e309"), c_dLargest);
    EXPECT_EQ(Value(L"1.7976931348623159e308"), c_dLargest);
    EXPECT_EQ(Value(L"1e-400"), 0.0);
    EXPECT_EQ(Value(L"-1e-400"), 0.0);
    EXPECT_EQ(Value(L"1e-324"), 0.0);
    EXPECT_EQ(Value(L"5e-324"), 5e-324);
    EXPECT_EQ(Value(L"1e-310"), 1e-310);
}

TEST(StringToNumber, ExponentsBeyondAllRangesSaturateAtOnce)
{
    EXPECT_EQ(Value(L"1e999999999999"), c_dLargest);
    EXPECT_EQ(Value(L"1e-999999999999"), 0.0);
    EXPECT_EQ(Value(L"0e999999999999"), 0.0);
    EXPECT_EQ(Value(L"0.00e-999999999999%"), 0.0);
    const std::wstring sNines(c_uMegabyte, L'9');
    EXPECT_EQ(Value(L"1e" + sNines), c_dLargest);
    EXPECT_EQ(Value(L"-1e-" + sNines), 0.0);
}

TEST(StringToNumber, AMegabyteOfDigitsIsReadAtOnce)
{
    EXPECT_EQ(Value(std::wstring(c_uMegabyte, L'9')), c_dLargest);
    EXPECT_EQ(Value(std::wstring(c_uMegabyte, L'0') + L"12"), 12.0);
    EXPECT_EQ(Value(L"0." + std::wstring(c_uMegabyte, L'0') + L"1"), 0.0);
    EXPECT_EQ(Value(L"0." + std::wstring(c_uMegabyte, L'0') + L"25e1000002"), 25.0);
    EXPECT_EQ(Value(L"1" + std::wstring(c_uMegabyte, L'0') + L"e-1000000"), 1.0);
    EXPECT_EQ(Value(L"0." + std::wstring(c_uMegabyte, L'3')), 1.0 / 3);
    EXPECT_EQ(ErrorPosition(std::wstring(c_uMegabyte, L'9') + L"x"), c_uMegabyte);
    EXPECT_EQ(ErrorPosition(std::wstring(c_uMegabyte, L' ')), c_uMegabyte);
}

TEST(StringToNumber, VeryLateDigitsStillDecideTheRounding)
{
    // 1 + 2^-53 lies exactly between two doubles; any further non-zero digit, however late, puts the number above.
    const std::wstring sMiddle = L"1.00000000000000011102230246251565404236316680908203125";
    double dValue = 0.0;
    ASSERT_TRUE(StringToNumber(sMiddle, &dValue, EnumNumberType::Double, false, nullptr));
    EXPECT_EQ(dValue, 1.0);
    ASSERT_TRUE(
        StringToNumber(sMiddle + std::wstring(5000, L'0') + L"1", &dValue, EnumNumberType::Double, false, nullptr));
    EXPECT_EQ(dValue, std::nextafter(1.0, 2.0));
    ASSERT_TRUE(StringToNumber(sMiddle + std::wstring(5000, L'0'), &dValue, EnumNumberType::Double, false, nullptr));
    EXPECT_EQ(dValue, 1.0);
}

TEST(StringToNumber, EveryDoubleComesBackFromItsText)
{
    std::mt19937_64 engine(20'260'412);
    for (int i = 0; i < 20'000; ++i)
    {
        const std::uint64_t uBits = engine();
        double dExpected = 0.0;
        std::memcpy(&dExpected, &uBits, sizeof(dExpected));
        if (!std::isfinite(dExpected))
        {
            continue;
        }
        std::array<wchar_t, 64> text{};
        ASSERT_GT(std::swprintf(text.data(), text.size(), L"%.17g", dExpected), 0);
        double dValue = 0.0;
        ASSERT_TRUE(StringToNumber(text.data(), &dValue, EnumNumberType::Double, false, nullptr));
        ASSERT_EQ(dValue, dExpected);
    }
}

TEST(StringToNumber, OnlyTheTypeDoubleIsAccepted)
{
    double dValue = c_dUntouched;
    EXPECT_FALSE(StringToNumber(L"1", &dValue, static_cast<EnumNumberType>(1), true, nullptr));
    EXPECT_EQ(dValue, c_dUntouched);
}

TEST(StringToNumber, TheLocaleDoesNotChangeTheDecimalSign)
{
    const CCommaLocale locale;
    EXPECT_EQ(Value(L"1.5"), 1.5);
    EXPECT_EQ(ErrorPosition(L"1,5"), 1U);
}

} // namespace
