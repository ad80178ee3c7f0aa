#include "classes/core/StringToNumber.h"
#include "tests/fuzz/CFuzzInput.h"
#include "tests/fuzz/FuzzTarget.h"
#include "tests/fuzz/PlainNumber.h"

#include <bit>
#include <cstdint>

namespace
{

constexpr double c_dUntouched = -12345.0;
constexpr unsigned c_uUntouched = 0xFFFFFFFF;

// Up to this many digits a CBigFloat holds the exact number, so both round to the same double.
constexpr std::size_t c_uExactDigits = 100;

bool HaveSameBits(double dFirst, double dSecond)
{
    return std::bit_cast<std::uint64_t>(dFirst) == std::bit_cast<std::uint64_t>(dSecond);
}

void CheckNumber(std::wstring_view sText, double dExpected)
{
    double dValue = c_dUntouched;
    CBigFloat big;
    unsigned uPosition = c_uUntouched;
    Require(StringToNumber(sText, &dValue, EnumNumberType::Double, false, &uPosition), "a number is refused");
    Require(StringToNumber(sText, &big, true, &uPosition), "a number is refused by the long form");
    Require(uPosition == c_uUntouched, "a number has an error position");
    Require(HaveSameBits(dValue, dExpected), "a number is not rounded to the nearest double");
    Require(!(big < 0) || dValue <= 0.0, "the signs of the two forms differ");
    Require(!(big > 0) || dValue >= 0.0, "the signs of the two forms differ");
    if (CountPlainDigits(sText) <= c_uExactDigits)
    {
        Require(big.ToDouble() == dValue, "the two forms differ");
    }
}

void CheckOther(std::wstring_view sText)
{
    const std::size_t uExpected = FindPlainErrorPosition(sText);
    double dValue = c_dUntouched;
    unsigned uPosition = c_uUntouched;
    Require(!StringToNumber(sText, &dValue, EnumNumberType::Double, false, &uPosition), "no number is accepted");
    Require(dValue == c_dUntouched, "a failure has changed the number");
    Require(uPosition == uExpected, "the error position is wrong");
    Require(!StringToNumber(sText, &dValue, EnumNumberType::Double, true, nullptr), "no number is accepted");
    Require(HaveSameBits(dValue, 0.0), "a failure has not cleared the number");
    CBigFloat big(c_dUntouched);
    Require(!StringToNumber(sText, &big, false, &uPosition) && big == CBigFloat(c_dUntouched) && uPosition == uExpected,
            "the long form fails in another way");
    Require(!StringToNumber(sText, &big, true, nullptr) && big == 0, "the long form has not cleared the number");
}

// Two numbers with different doubles have the same order in both forms.
void CheckOrder(std::wstring_view sFirst, std::wstring_view sSecond)
{
    CBigFloat first;
    CBigFloat second;
    double dFirst = 0.0;
    double dSecond = 0.0;
    const bool bNumbers = StringToNumber(sFirst, &first, false, nullptr) &&
                          StringToNumber(sSecond, &second, false, nullptr) &&
                          StringToNumber(sFirst, &dFirst, EnumNumberType::Double, false, nullptr) &&
                          StringToNumber(sSecond, &dSecond, EnumNumberType::Double, false, nullptr);
    if (bNumbers)
    {
        Require(!(dFirst < dSecond) || first < second, "the order of the two forms differs");
        Require(!(dFirst > dSecond) || first > second, "the order of the two forms differs");
        Require((first == second) == (second == first), "equality depends on the order");
    }
}

} // namespace

// Each line is a text that may be a number.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    CFuzzInput input(pBytes, uCount);
    std::wstring sPrevious;
    while (!input.IsAtEnd())
    {
        const std::wstring sText = input.TakeLine();
        const std::optional<double> expected = ReadPlainNumber(sText);
        if (expected)
        {
            CheckNumber(sText, *expected);
            CheckOrder(sPrevious, sText);
            sPrevious = sText;
        }
        else
        {
            CheckOther(sText);
        }
    }
    return 0;
}
