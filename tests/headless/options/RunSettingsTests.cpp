#include "headless/console/HeadlessError.h"
#include "headless/options/RunSettings.h"
#include "settings/CIniText.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::StartsWith;

namespace
{

CSettings Resolve(const std::vector<std::string>& arguments)
{
    return ResolveSettings(ParseOptions(arguments).options, "", nullptr);
}

CSettings Resolve(const std::vector<std::string>& arguments, const std::string& sLines)
{
    const CIniText file("[Settings]\n" + sLines);
    return ResolveSettings(ParseOptions(arguments).options, "K.ini", &file);
}

std::string GetError(const std::vector<std::string>& arguments, const std::string& sLines)
{
    try
    {
        Resolve(arguments, sLines);
    }
    catch (const CUsageError& error)
    {
        return std::string("usage: ") + error.what();
    }
    catch (const CHeadlessError& error)
    {
        return error.what();
    }
    return "";
}

std::wstring JoinFactors(const CSettings& settings)
{
    const CFactors& factors = settings.factors;
    return factors[0].GetText().Get() + L"|" + factors[1].GetText().Get() + L"|" + factors[2].GetText().Get();
}

constexpr ColourRef c_crRed = 0x0000FF;
constexpr ColourRef c_crGrey = 0x808080;
constexpr ColourRef c_crGreen = 0x00FF00;

} // namespace

TEST(RunSettings, WithoutFileAndOptionsTheDefaultsAreUsed)
{
    const CSettings settings = Resolve({});

    EXPECT_EQ(settings.world, (CSize<int>{512, 512}));
    EXPECT_EQ(settings.atoms, 256);
    EXPECT_EQ(settings.minRadius, 3);
    EXPECT_EQ(settings.maxRadius, 5);
    EXPECT_EQ(settings.eMode, EnumAtomColourMode::Speed);
    EXPECT_EQ(settings.colours, (CClassColours{c_crRed, c_crGrey, c_crGreen}));
    EXPECT_EQ(JoinFactors(settings), L"0.75||1.25");
    EXPECT_EQ(settings.background, 0U);
}

TEST(RunSettings, AnEmptyFileGivesTheSameDefaults)
{
    const CSettings settings = Resolve({}, "");

    EXPECT_EQ(settings.world, (CSize<int>{512, 512}));
    EXPECT_EQ(settings.atoms, 256);
    EXPECT_EQ(JoinFactors(settings), L"0.75||1.25");
    EXPECT_EQ(settings.colours, (CClassColours{c_crRed, c_crGrey, c_crGreen}));
}

TEST(RunSettings, FixedModeWithoutAFileLeavesTheThirdFactorToTheRemainder)
{
    const CSettings settings = Resolve({"--colour-mode", "fixed"});

    EXPECT_EQ(JoinFactors(settings), L"25%|50%|");
    EXPECT_EQ(settings.colours, (CClassColours{c_crRed, c_crRed, c_crGreen}));
}

TEST(RunSettings, TheFileGivesEverything)
{
    const CSettings settings =
        Resolve({}, "World_width=300\nWorld_height=200\nWorld_background_colour=16711680\nTot_atoms=77\n"
                    "Atoms_min_radius=2\nAtoms_max_radius=9\nAtoms_colour_mode=0\nAtom_colour_1=1\nAtom_colour_2=2\n"
                    "Atom_colour_3=3\nAtom_colour_1_factor=10\nAtom_colour_2_factor=\nAtom_colour_3_factor=50%\n");

    EXPECT_EQ(settings.world, (CSize<int>{300, 200}));
    EXPECT_EQ(settings.atoms, 77);
    EXPECT_EQ(settings.minRadius, 2);
    EXPECT_EQ(settings.maxRadius, 9);
    EXPECT_EQ(settings.eMode, EnumAtomColourMode::Fixed);
    EXPECT_EQ(settings.colours, (CClassColours{1, 2, 3}));
    EXPECT_EQ(JoinFactors(settings), L"10||50%");
    EXPECT_EQ(settings.background, 0xFF0000U);
}

TEST(RunSettings, OptionsTakePrecedenceOverTheFile)
{
    const std::string sLines = "World_width=300\nWorld_height=200\nTot_atoms=77\nAtoms_min_radius=2\n"
                               "Atoms_max_radius=9\nAtom_colour_1=1\nAtom_colour_1_factor=0.5\n"
                               "World_background_colour=5\n";
    const CSettings settings = Resolve({"--width", "100", "--atoms", "5", "--max-radius", "4", "--factors", "0.1,,0.2",
                                        "--colours", "010101,020202,030303", "--background", "000000"},
                                       sLines);

    EXPECT_EQ(settings.world, (CSize<int>{100, 200}));
    EXPECT_EQ(settings.atoms, 5);
    EXPECT_EQ(settings.minRadius, 2);
    EXPECT_EQ(settings.maxRadius, 4);
    EXPECT_EQ(JoinFactors(settings), L"0.1||0.2");
    EXPECT_EQ(settings.colours, (CClassColours{0x010101, 0x020202, 0x030303}));
    EXPECT_EQ(settings.background, 0U);
}

TEST(RunSettings, AModeGivenAsOptionSelectsTheDefaultsForTheFile)
{
    const CSettings settings = Resolve({"--colour-mode", "fixed"}, "Atoms_colour_mode=1\nAtom_colour_3_factor=\n");

    EXPECT_EQ(settings.eMode, EnumAtomColourMode::Fixed);
    EXPECT_EQ(JoinFactors(settings), L"25%|50%|");
}

TEST(RunSettings, SpeedModeDoesNotUseTheSecondFactor)
{
    EXPECT_EQ(JoinFactors(Resolve({}, "Atom_colour_2_factor=50%\n")), L"0.75||1.25");
    EXPECT_EQ(GetError({}, "Atom_colour_2_factor=nonsense\n"),
              "K.ini, line 2, Atom_colour_2_factor: 'nonsense' is not allowed; allowed is a number from 0 on, in fixed "
              "mode also a percentage like 12.34%");
}

// The window corrects such values or reads a part of them, but an experiment must run with exactly the values that it
// names.
TEST(RunSettings, AValueThatIsNotOneWholeNumberInItsRangeIsRefused)
{
    const auto getRefused = [](const std::string& sKey, const std::string& sValue) {
        const std::string sStart = "K.ini, line 3, " + sKey + ": ";
        const std::string sError = GetError({}, "\n" + sKey + "=" + sValue + "\n");
        return sError.starts_with(sStart) ? sError.substr(sStart.size()) : "another place: " + sError;
    };
    const std::string sLength = " is not allowed; allowed is a whole number from 10 to 9999";
    for (const std::string sValue : {"9", "10000", "-20", "+20", "700.9", "600abc", "abc", "", "1e3", "0x100",
                                     "0b11111", "20 ; wide", "5,000", "18446744073709551626"})
    {
        EXPECT_EQ(getRefused("World_width", sValue), "'" + sValue + "'" + sLength);
        EXPECT_EQ(getRefused("World_height", sValue), "'" + sValue + "'" + sLength);
    }
    EXPECT_EQ(getRefused("Tot_atoms", "1e3"), "'1e3' is not allowed; allowed is a whole number from 1 to 1000000");
    EXPECT_EQ(getRefused("Tot_atoms", "1000001"),
              "'1000001' is not allowed; allowed is a whole number from 1 to 1000000");
    EXPECT_EQ(getRefused("Atoms_min_radius", "260"), "'260' is not allowed; allowed is a whole number from 1 to 32");
    EXPECT_EQ(getRefused("Atoms_max_radius", "0"), "'0' is not allowed; allowed is a whole number from 1 to 32");
    EXPECT_EQ(getRefused("Atoms_colour_mode", "256"), "'256' is not allowed; allowed is a whole number from 0 to 1");
    EXPECT_EQ(getRefused("Atom_colour_2", "16777216"),
              "'16777216' is not allowed; allowed is a whole number from 0 to 16777215");
    EXPECT_EQ(getRefused("World_background_colour", "-1"),
              "'-1' is not allowed; allowed is a whole number from 0 to 16777215");
    EXPECT_EQ(getRefused("Atom_colour_1_factor", "0.12345678901234"),
              "'0.12345678901234' is not allowed; allowed is a text of at most 15 characters");
    EXPECT_EQ(getRefused("Atom_colour_1_factor", "-1"),
              "'-1' is not allowed; allowed is a number from 0 on, in fixed mode also a percentage like 12.34%");
}

TEST(RunSettings, ANumberMayHaveLeadingZerosAndQuotationMarks)
{
    EXPECT_EQ(Resolve({}, "World_width=\"600\"\n").world.cx, 600);
    EXPECT_EQ(Resolve({}, "World_width=0600\n").world.cx, 600);
    EXPECT_EQ(Resolve({}, "World_width=9999\nWorld_height=10\n").world, (CSize<int>{9999, 10}));
    EXPECT_EQ(JoinFactors(Resolve({}, "Atom_colour_1_factor=0.1234567890123\n")), L"0.1234567890123||1.25");
}

TEST(RunSettings, AFileThatIsNoSettingsFileIsRefused)
{
    EXPECT_EQ(GetError({}, "Tot_atom=5\n"),
              "K.ini, line 2: the key 'Tot_atom' is unknown; the nearest known one is Tot_atoms");
}

TEST(RunSettings, ABlankBehindThePercentSignIsRefused)
{
    EXPECT_NE(GetError({"--colour-mode", "fixed", "--factors", "50% ,,10"}, ""), "");
    EXPECT_NE(GetError({"--factors", "50% ,,10"}, ""), "");
    EXPECT_EQ(GetError({"--colour-mode", "fixed", "--factors", "50%,,10"}, ""), "");
}

TEST(RunSettings, AValueThatAnOptionReplacesIsNotChecked)
{
    EXPECT_EQ(GetError({"--width", "50"}, "World_width=9\n"), "");
    EXPECT_EQ(GetError({"--factors", "1,,2"}, "Atom_colour_1_factor=x\n"), "");
}

TEST(RunSettings, ALoadedStateReplacesAtomsAndRadiiOfTheFile)
{
    EXPECT_EQ(
        GetError({"--load-state", "a.csv", "--width", "50", "--height", "60"}, "Tot_atoms=0\nAtoms_min_radius=0\n"),
        "");
}

// Atoms of a large world in a small one lie beyond its walls: another experiment.
TEST(RunSettings, ALoadedStateNeedsTheSizeOfItsWorld)
{
    const std::string sWidth = "usage: --load-state: a state does not hold the size of its world; the width must be "
                               "given, by --width or as World_width of --settings";
    const std::string sHeight = "usage: --load-state: a state does not hold the size of its world; the height must be "
                                "given, by --height or as World_height of --settings";
    const std::vector<std::string> load = {"--load-state", "a.csv"};

    EXPECT_EQ(RunProgram(load).err, "error: " + sWidth.substr(7) + "\nkinetarium-headless --help shows all options.\n");
    EXPECT_EQ(RunProgram(load).exitCode, 2);
    EXPECT_EQ(RunProgram({"--load-state", "a.csv", "--width", "50"}).err.substr(7, sHeight.size() - 7),
              sHeight.substr(7));
    EXPECT_EQ(GetError(load, ""), sWidth);
    EXPECT_EQ(GetError(load, "World_width=50\n"), sHeight);
    EXPECT_EQ(GetError(load, "World_height=60\n"), sWidth);
    EXPECT_EQ(GetError({"--load-state", "a.csv", "--width", "50"}, "World_height=60\n"), "");
    EXPECT_EQ(Resolve(load, "World_width=50\nWorld_height=60\n").world, (CSize<int>{50, 60}));
}

TEST(RunSettings, RadiiInTheWrongOrderAreReportedForTheirSource)
{
    const std::string sWhat = "the smallest radius (9) is above the largest (4)";
    EXPECT_EQ(GetError({}, "Atoms_min_radius=9\nAtoms_max_radius=4\n"), "K.ini, line 2, Atoms_min_radius: " + sWhat);
    EXPECT_EQ(GetError({"--min-radius", "9"}, "Atoms_max_radius=4\n"), "usage: --min-radius, --max-radius: " + sWhat);
}

TEST(RunSettings, FactorsOfTheFileAreCheckedAsInTheWindow)
{
    EXPECT_THAT(GetError({}, "Atom_colour_3_factor=abc\n"),
                StartsWith("K.ini, line 2, Atom_colour_3_factor: 'abc' is not allowed; allowed is a number"));
    EXPECT_THAT(GetError({}, "Atom_colour_1_factor=50%\n"),
                StartsWith("K.ini, line 2, Atom_colour_1_factor: factor 1, '50%', is a percentage"));
    EXPECT_THAT(GetError({}, "Atoms_colour_mode=0\n"),
                StartsWith("K.ini, Atom_colour_1_factor: exactly two of the three factors must be given"));
    EXPECT_THAT(GetError({}, "Atom_colour_1_factor=\n"), StartsWith("K.ini, line 2, Atom_colour_1_factor: exactly"));
}

TEST(RunSettings, TheStartPointMustLeaveRoomForTheLargestAtom)
{
    const auto tryPoint = [](const std::string& sPoint) {
        return GetError({"--start-at", sPoint, "--max-radius", "9"}, "World_width=300\nWorld_height=200\n");
    };
    for (const char* sPoint : {"9,191", "291,9"})
    {
        EXPECT_EQ(tryPoint(sPoint), "");
    }
    for (const char* sPoint : {"9,192", "9,8", "8,9", "292,9"})
    {
        EXPECT_THAT(tryPoint(sPoint), StartsWith("usage: --start-at: " + std::string(sPoint) +
                                                 " is not allowed; allowed is X from 9 to 291 and Y from 9 to 191"));
    }
}

TEST(RunSettings, TheFileIsReadFromTheDisk)
{
    const CTemporaryFolder folder;
    const std::string sFile = folder.WriteFile("Kinetarium.ini", "[Settings]\r\nTot_atoms=7\r\n");
    const std::string sBad = folder.WriteFile("Bad.ini", "[Settings]\r\nTot_atoms=0\r\n");
    const std::string sLarge = folder.WriteFile("Large.ini", std::string((1U << 20U) + 1, ' '));

    const CProgramResult good = RunProgram({"--settings", sFile, "--iterations", "1"});
    EXPECT_EQ(good.exitCode, 0);
    EXPECT_EQ(GetSummaryValue(good.out, "atoms"), "7");
    const CProgramResult bad = RunProgram({"--settings", sBad});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_EQ(bad.err, "error: " + sBad +
                           ", line 2, Tot_atoms: '0' is not allowed; allowed is a whole number from 1 to 1000000\n");
    const CProgramResult empty = RunProgram({"--settings", folder.WriteFile("Empty.ini", "")});
    EXPECT_EQ(empty.exitCode, 1);
    EXPECT_EQ(empty.err, "error: " + folder.GetPath("Empty.ini") +
                             ": there is no section [Settings]; allowed is a settings file as the window writes it\n");
    const CProgramResult missing = RunProgram({"--settings", folder.GetPath("none.ini")});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.err, "error: " + folder.GetPath("none.ini") + ": there is no such file\n");
    const CProgramResult large = RunProgram({"--settings", sLarge});
    EXPECT_EQ(large.exitCode, 1);
    EXPECT_EQ(large.err, "error: " + sLarge + ": is longer than a megabyte and no settings file\n");
}
