#include "simulation/Parameters.h"

#include "classes/core/CWString.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>

namespace
{

// A message as the test compares it.
struct CShown
{
    std::wstring key;
    int factorNumber;
    std::wstring titleKey;

    bool operator==(const CShown&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const CShown& shown)
{
    return stream << std::string(shown.key.begin(), shown.key.end()) << " " << shown.factorNumber << " "
                  << std::string(shown.titleKey.begin(), shown.titleKey.end());
}

std::vector<CShown> Check(const wchar_t* first, const wchar_t* second, const wchar_t* third, EnumAtomColourMode eMode)
{
    std::vector<CShown> shown;
    for (const CFactorMessage& message : CheckFactors({CWString(first), CWString(second), CWString(third)}, eMode))
    {
        shown.push_back({message.key, message.factorNumber, message.titleKey});
    }
    return shown;
}

std::vector<CShown> CheckFixed(const wchar_t* first, const wchar_t* second, const wchar_t* third)
{
    return Check(first, second, third, EnumAtomColourMode::Fixed);
}

std::vector<CShown> CheckSpeed(const wchar_t* first, const wchar_t* second, const wchar_t* third)
{
    return Check(first, second, third, EnumAtomColourMode::Speed);
}

using Messages = std::vector<CShown>;
const CShown c_NeedTwo = {L"Need_exactly_two_out_of_three_factors", 0, L"Error"};

CShown Invalid(int number)
{
    return {L"Colour_factor_n_is_invalid", number, L"Colour_" + std::to_wstring(number) + L"_factor"};
}

CShown InvalidForSpeed(int number)
{
    return {L"Colour_factor_n_is_invalid_for_speed_mode", number, L"Colour_1_factor"};
}

TEST(Parameters, TheNumberOfAtomsIsLimitedTo1To1000000)
{
    EXPECT_EQ(ClampTotalAtoms(0), 1);
    EXPECT_EQ(ClampTotalAtoms(-5), 1);
    EXPECT_EQ(ClampTotalAtoms(1), 1);
    EXPECT_EQ(ClampTotalAtoms(256), 256);
    EXPECT_EQ(ClampTotalAtoms(1'000'000), 1'000'000);
    EXPECT_EQ(ClampTotalAtoms(5'000'000), 1'000'000);
    EXPECT_EQ(ClampTotalAtoms(std::numeric_limits<int>::max()), 1'000'000);
    EXPECT_EQ(ClampTotalAtoms(std::numeric_limits<int>::min()), 1);
}

TEST(Parameters, RadiiAreLimitedTo1To32)
{
    EXPECT_EQ(ClampRadius(0), 1);
    EXPECT_EQ(ClampRadius(1), 1);
    EXPECT_EQ(ClampRadius(32), 32);
    EXPECT_EQ(ClampRadius(40), 32);
    EXPECT_EQ(ClampRadius(255), 32);
}

TEST(Parameters, WorldLengthsAreLimitedTo10To9999)
{
    EXPECT_EQ(ClampWorldLength(5), 10);
    EXPECT_EQ(ClampWorldLength(-20000), 10);
    EXPECT_EQ(ClampWorldLength(512), 512);
    EXPECT_EQ(ClampWorldLength(20000), 9999);
}

TEST(Parameters, RadiiInTheWrongOrderAreSwapped)
{
    const auto sort = [](int minRadius, int maxRadius) {
        auto low = ClampRadius(static_cast<std::uint8_t>(minRadius));
        auto high = ClampRadius(static_cast<std::uint8_t>(maxRadius));
        SortRadii(low, high);
        return std::pair<int, int>(low, high);
    };
    EXPECT_EQ(sort(9, 4), std::pair(4, 9));
    EXPECT_EQ(sort(40, 2), std::pair(2, 32));
    EXPECT_EQ(sort(3, 5), std::pair(3, 5));
    EXPECT_EQ(sort(7, 7), std::pair(7, 7));
}

TEST(Parameters, OnlyEntry1OfTheColourModeListIsSpeedMode)
{
    EXPECT_EQ(ColourModeFromIndex(0), EnumAtomColourMode::Fixed);
    EXPECT_EQ(ColourModeFromIndex(1), EnumAtomColourMode::Speed);
    EXPECT_EQ(ColourModeFromIndex(2), EnumAtomColourMode::Fixed);
    EXPECT_EQ(ColourModeFromIndex(-1), EnumAtomColourMode::Fixed);
}

TEST(Parameters, FixedModeTakesACountAndAPercentage)
{
    EXPECT_EQ(CheckFixed(L"10", L"", L"50%"), Messages{});
    EXPECT_EQ(CheckFixed(L"", L"12.34%", L"123"), Messages{});
}

TEST(Parameters, ThreeFactorsOneOrNoneAskForExactlyTwo)
{
    EXPECT_EQ(CheckFixed(L"10", L"20", L"30"), Messages{c_NeedTwo});
    EXPECT_EQ(CheckFixed(L"10", L"", L""), Messages{c_NeedTwo});
    EXPECT_EQ(CheckFixed(L"", L"", L""), Messages{c_NeedTwo});
    EXPECT_EQ(CheckSpeed(L"1", L"2", L"3"), Messages{c_NeedTwo});
    EXPECT_EQ(CheckSpeed(L"", L"", L""), Messages{c_NeedTwo});
}

TEST(Parameters, ZeroIsASetFactor)
{
    EXPECT_EQ(CheckFixed(L"0", L"", L"0%"), Messages{});
    EXPECT_EQ(CheckFixed(L"0", L"0", L"0"), Messages{c_NeedTwo});
}

TEST(Parameters, AFactorBelowZeroOrNoNumberIsInvalid)
{
    EXPECT_EQ(CheckFixed(L"-1", L"", L"5"), Messages{Invalid(1)});
    EXPECT_EQ(CheckFixed(L"1", L"abc", L""), Messages{Invalid(2)});
    EXPECT_EQ(CheckFixed(L"1", L"", L"1,5"), Messages{Invalid(3)});
    EXPECT_EQ(CheckFixed(L"1", L"", L" "), Messages{Invalid(3)});
    EXPECT_EQ(CheckFixed(L"1", L"", L"%"), Messages{Invalid(3)});
    EXPECT_EQ(CheckFixed(L"1", L"", L"-0.0001%"), Messages{Invalid(3)});
}

TEST(Parameters, EveryBadFactorHasItsMessageInOrderAndTheCountIsNotComplainedAbout)
{
    EXPECT_EQ(CheckFixed(L"x", L"-2", L"5%%"), (Messages{Invalid(1), Invalid(2), Invalid(3)}));
    EXPECT_EQ(CheckFixed(L"", L"", L"x"), Messages{Invalid(3)});
}

TEST(Parameters, SpeedModeTakesTheUsualPair)
{
    EXPECT_EQ(CheckSpeed(L"0.75", L"", L"1.25"), Messages{});
}

TEST(Parameters, SpeedModeTakesNoPercentage)
{
    EXPECT_EQ(CheckSpeed(L"50%", L"", L"1.25"), Messages{InvalidForSpeed(1)});
}

// People know the box by its title: it is the label of factor 1 for the other two as well.
TEST(Parameters, TheSpeedModeMessageIsAlwaysTitledForFactor1)
{
    EXPECT_EQ(CheckSpeed(L"x", L"", L"50%"), (Messages{Invalid(1), InvalidForSpeed(3)}));
    EXPECT_EQ(CheckSpeed(L"1%", L"2%", L"3%"), (Messages{InvalidForSpeed(1), InvalidForSpeed(2), InvalidForSpeed(3)}));
}

// Only a text whose first "%" is its last character is a percentage here; what else the parser takes is a number.
TEST(Parameters, APercentSignThatIsNotTheLastCharacterIsTheParsersBusiness)
{
    EXPECT_EQ(CheckSpeed(L"50% ", L"", L"1.25"), Messages{});
    EXPECT_EQ(CheckSpeed(L"5%0", L"", L"1.25"), Messages{Invalid(1)});
    EXPECT_EQ(CheckSpeed(L"50%%", L"", L"1.25"), Messages{Invalid(1)});
}

TEST(Parameters, AbsurdNumbersAreAnsweredAtOnce)
{
    EXPECT_EQ(CheckFixed(L"1e300", L"", L"1000000000000%"), Messages{});
    EXPECT_EQ(CheckFixed(L"1e999999999", L"", L"1"), Messages{});
    EXPECT_EQ(CheckFixed(L"-1e999999999", L"", L"1"), Messages{Invalid(1)});
}

} // namespace
