#include "headless/console/HeadlessError.h"
#include "headless/options/COptions.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{

struct CUsageCase
{
    std::vector<std::string> arguments;
    std::string message;
};

// Names the case in the output of a failed test.
void PrintTo(const CUsageCase& usage, std::ostream* pStream)
{
    *pStream << usage.message;
}

class UsageErrors : public testing::TestWithParam<CUsageCase>
{
};

const std::string c_sLength = " is not allowed; allowed is a whole number from 10 to 9999";
const std::string c_sAtoms = " is not allowed; allowed is a whole number from 1 to 1000000";
const std::string c_sRadius = " is not allowed; allowed is a whole number from 1 to 32";
const std::string c_sLoaded = ": is not allowed with --load-state, whose file brings the atoms";
const std::string c_sThreeColours =
    " is not allowed; allowed is RRGGBB,RRGGBB,RRGGBB: three colours of six hexadecimal digits, red first";
const std::string c_sSameFile = "; allowed is another file for each";

} // namespace

TEST_P(UsageErrors, NameTheOptionAndTheAllowedValuesAndExitWithTwo)
{
    const CProgramResult result = RunProgram(GetParam().arguments);

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, StartsWith("error: " + GetParam().message + "\n"));
    EXPECT_THAT(result.err, HasSubstr("kinetarium-headless --help shows all options."));
    EXPECT_EQ(result.out, "");
}

INSTANTIATE_TEST_SUITE_P(
    World, UsageErrors,
    testing::Values(
        CUsageCase{{"--width", "9"}, "--width: '9'" + c_sLength},
        CUsageCase{{"--width", "10000"}, "--width: '10000'" + c_sLength},
        CUsageCase{{"--width", "512.5"}, "--width: '512.5'" + c_sLength},
        CUsageCase{{"--width", "0x100"}, "--width: '0x100'" + c_sLength},
        CUsageCase{{"--width", "1e3"}, "--width: '1e3'" + c_sLength},
        CUsageCase{{"--width", " 20"}, "--width: ' 20'" + c_sLength},
        CUsageCase{{"--width", "99999999999999999999"}, "--width: '99999999999999999999'" + c_sLength},
        CUsageCase{{"--width", ""}, "--width: ''" + c_sLength},
        CUsageCase{{"--height", "abc"}, "--height: 'abc'" + c_sLength},
        CUsageCase{{"--height=-5"}, "--height: '-5'" + c_sLength},
        CUsageCase{{"--atoms", "0"}, "--atoms: '0'" + c_sAtoms},
        CUsageCase{{"--atoms", "1000001"}, "--atoms: '1000001'" + c_sAtoms},
        CUsageCase{{"--min-radius", "0"}, "--min-radius: '0'" + c_sRadius},
        CUsageCase{{"--max-radius", "33"}, "--max-radius: '33'" + c_sRadius},
        CUsageCase{{"--min-radius", "6"},
                   "--min-radius, --max-radius: the smallest radius (6) is above the largest (5)"},
        CUsageCase{{"--seed", "18446744073709551616"},
                   "--seed: '18446744073709551616' is not allowed; allowed is a whole number from 0 to "
                   "18446744073709551615"},
        CUsageCase{{"--iterations", "-1"},
                   "--iterations: '-1' is not allowed; allowed is a whole number from 0 to 1000000000000"},
        CUsageCase{{"--threads", "0"}, "--threads: '0' is not allowed; allowed is a whole number from 1 to 256"},
        CUsageCase{{"--threads", "all"}, "--threads: 'all' is not allowed; allowed is a whole number from 1 to 256"},
        CUsageCase{{"--start-at", "100"},
                   "--start-at: '100' is not allowed; allowed is X,Y: two whole numbers with a comma"},
        CUsageCase{{"--start-at", "1,2,3"},
                   "--start-at: '1,2,3' is not allowed; allowed is X,Y: two whole numbers with a comma"},
        CUsageCase{{"--start-at", "100,508"},
                   "--start-at: 100,508 is not allowed; allowed is X from 5 to 507 and Y from 5 to 507, "
                   "where the largest atom fits"}));

INSTANTIATE_TEST_SUITE_P(
    Colours, UsageErrors,
    testing::Values(
        CUsageCase{{"--colour-mode", "red"}, "--colour-mode: 'red' is not allowed; allowed is speed or fixed"},
        CUsageCase{{"--colours", "ff0000,00ff00"}, "--colours: 'ff0000,00ff00'" + c_sThreeColours},
        CUsageCase{{"--colours", "ff0000,00ff00,0000fg"}, "--colours: 'ff0000,00ff00,0000fg'" + c_sThreeColours},
        CUsageCase{{"--background", "fff"},
                   "--background: 'fff' is not allowed; allowed is RRGGBB: six hexadecimal digits, red "
                   "first"},
        CUsageCase{{"--factors", "1,2"},
                   "--factors: '1,2' is not allowed; allowed is A,B,C: three factors with two commas, one "
                   "of them empty"},
        CUsageCase{{"--factors", "1,2,3"},
                   "--factors: exactly two of the three factors must be given; the atoms that are left "
                   "over take the third colour"},
        CUsageCase{{"--factors", "abc,,2"},
                   "--factors: factor 1, 'abc', is not allowed; allowed is a number from 0 on, in fixed "
                   "mode also a percentage like 12.34%"},
        CUsageCase{{"--factors", "0.5,,50%"},
                   "--factors: factor 3, '50%', is a percentage, which is allowed in fixed mode only"},
        CUsageCase{{"--factors", "0.5,1.5,"},
                   "--factors: in speed mode factors 1 and 3 must be given, and factor 2 must be empty"}));

INSTANTIATE_TEST_SUITE_P(
    Files, UsageErrors,
    testing::Values(CUsageCase{{"--load-state", "a.csv", "--atoms", "5"}, "--atoms" + c_sLoaded},
                    CUsageCase{{"--load-state", "a.csv", "--min-radius", "5"}, "--min-radius" + c_sLoaded},
                    CUsageCase{{"--load-state", "a.csv", "--max-radius", "5"}, "--max-radius" + c_sLoaded},
                    CUsageCase{{"--load-state", "a.csv", "--start-at", "5,5"}, "--start-at" + c_sLoaded},
                    CUsageCase{{"--save-state", ""}, "--save-state: the file name is empty"},
                    CUsageCase{{"--save-state", "-", "--stats", "-"},
                               "--stats: '-' is the same file as --save-state: '-'" + c_sSameFile},
                    CUsageCase{{"--stats", "a", "--picture", "./a"},
                               "--picture: './a' is the same file as --stats: 'a'" + c_sSameFile},
                    CUsageCase{{"--picture", "-"},
                               "--picture: standard output is not allowed; allowed is the name of a file"},
                    CUsageCase{{"--picture-every", "5"}, "--picture-every: needs --picture, which names the files"},
                    CUsageCase{{"--picture", "a.png", "--picture-every", "0"},
                               "--picture-every: '0' is not allowed; allowed is a whole number from 1 to "
                               "1000000000000"}));

// The option library writes these messages; they only have to name the error.
TEST(Options, AnUnknownOptionIsNamed)
{
    const CProgramResult result = RunProgram({"--temperature=5"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr("--temperature=5"));
}

TEST(Options, AValueWithoutAnOptionIsNamed)
{
    const CProgramResult result = RunProgram({"world.csv"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr("world.csv"));
}

TEST(Options, AnOptionWithoutItsValueIsNamed)
{
    const CProgramResult result = RunProgram({"--width"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr("--width"));
}

TEST(Options, AnOptionGivenTwiceIsNamed)
{
    const CProgramResult result = RunProgram({"--width", "20", "--width", "30"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr("--width"));
}

TEST(Options, HelpAndVersionGoToStandardOutputAndSucceed)
{
    const CProgramResult help = RunProgram({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    for (const char* const sOption :
         {"--width",         "--height",      "--atoms",      "--min-radius",  "--max-radius",  "--seed",
          "--start-at",      "--iterations",  "--load-state", "--save-state",  "--stats",       "--picture",
          "--picture-every", "--colour-mode", "--colours",    "--factors",     "--background",  "--settings",
          "--trajectory",    "--every",       "--video",      "--video-every", "--no-overlaps", "--quiet"})
    {
        EXPECT_THAT(help.out, HasSubstr(sOption));
    }
    EXPECT_EQ(help.err, "");
    const CProgramResult version = RunProgram({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_THAT(version.out, StartsWith("kinetarium-headless "));
}

TEST(Options, TheLimitsThemselvesAreAllowed)
{
    const COptions options =
        ParseOptions({"--width", "10", "--height", "9999", "--atoms", "1000000", "--min-radius", "1", "--max-radius",
                      "32", "--seed", "18446744073709551615", "--iterations", "0"})
            .options;

    EXPECT_EQ(options.width, 10);
    EXPECT_EQ(options.height, 9999);
    EXPECT_EQ(options.atoms, 1000000);
    EXPECT_EQ(options.minRadius, 1);
    EXPECT_EQ(options.maxRadius, 32);
    EXPECT_EQ(options.seed, 18446744073709551615U);
    EXPECT_EQ(options.iterations, 0U);
}

TEST(Options, ANumberOfIterationsMayHaveAnExponent)
{
    EXPECT_EQ(ParseOptions({"--iterations", "1e6"}).options.iterations, 1'000'000U);
    EXPECT_EQ(ParseOptions({"--iterations", "2.50E3"}).options.iterations, 2500U);
    EXPECT_EQ(ParseOptions({"--iterations", "1e12"}).options.iterations, 1'000'000'000'000U);
    EXPECT_EQ(ParseOptions({"--iterations", "0e0"}).options.iterations, 0U);
    EXPECT_EQ(ParseOptions({"--picture", "a.png", "--picture-every", "5e2"}).options.pictureEvery, 500U);
    for (const std::string sText : {"1e13", "2.55e1", "e6", ".5e1", "1e", "1e-1", "1.e", "1e6 ", "1e6e6", "1.2.3e9",
                                    "-1e3", "1e99999999999999999999", "1000.0"})
    {
        const CProgramResult result = RunProgram({"--iterations=" + sText});
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_THAT(result.err, StartsWith("error: --iterations: '" + sText + "' is not allowed; allowed is a whole"));
    }
}

// An octal reading would silently give another number.
TEST(Options, ALeadingZeroStaysDecimal)
{
    EXPECT_EQ(ParseOptions({"--width=020"}).options.width, 20);
}

TEST(Options, ColoursAreWrittenRedFirst)
{
    const COptions options = ParseOptions({"--colours", "ff0000,00FF00,0000ff", "--background", "123456"}).options;

    EXPECT_EQ(options.colours, (CClassColours{0x0000FF, 0x00FF00, 0xFF0000}));
    EXPECT_EQ(options.background, 0x563412U);
}

TEST(Options, FactorsMayBeEmpty)
{
    const COptions options = ParseOptions({"--factors", "10,,25%"}).options;

    ASSERT_TRUE(options.factors);
    EXPECT_EQ((*options.factors)[0].GetText(), L"10");
    EXPECT_EQ((*options.factors)[1].GetText(), L"");
    EXPECT_EQ((*options.factors)[2].GetText(), L"25%");
}

TEST(Options, WithoutOptionsTheDefaultsApply)
{
    const COptions options = ParseOptions({}).options;

    EXPECT_FALSE(options.width || options.height || options.atoms || options.minRadius || options.maxRadius);
    EXPECT_FALSE(options.seed || options.startAt || options.loadState || options.settings || options.quiet);
    EXPECT_EQ(options.iterations, 1000U);
}
