#include "headless/console/HeadlessError.h"
#include "headless/states/StateFile.h"
#include "tests/headless/HeadlessTesting.h"
#include "tests/simulation/SameAtom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>

namespace
{

const std::string c_sHeader = "x,y,vx,vy,radius\n";

CAtoms Load(const std::string& sText)
{
    std::istringstream stream(sText);
    CAtoms atoms;
    LoadState(stream, "a.csv", atoms);
    return atoms;
}

std::string Save(const CAtoms& atoms)
{
    CTextSink sink;
    SaveState(atoms, sink);
    return sink.GetText();
}

std::string GetError(const std::string& sText)
{
    try
    {
        Load(sText);
    }
    catch (const CHeadlessError& error)
    {
        EXPECT_EQ(error.GetExitCode(), 1);
        return error.what();
    }
    return "";
}

} // namespace

TEST(StateFile, HoldsAHeaderAndOneRowForEachAtom)
{
    CAtom first = MakeAtom(1.5F, 2.0F, 3);
    first.vx = -0.1F;
    first.vy = 1e-7F;

    EXPECT_EQ(Save(MakeAtoms({first, MakeAtom(0.0F, -0.0F, 255)})),
              "x,y,vx,vy,radius\n1.5,2,-0.1,1e-07,3\n0,-0,0,0,255\n");
}

TEST(StateFile, LoadingGivesTheAtomsWithTheirSpeedsAndStatistics)
{
    const CAtoms atoms = Load(c_sHeader + "1.5,2,3,4,5\n10,20,0,-1,255\n");

    ASSERT_EQ(atoms.GetCount(), 2);
    EXPECT_EQ(atoms[0].x, 1.5F);
    EXPECT_EQ(atoms[0].y, 2.0F);
    EXPECT_EQ(atoms[0].vx, 3.0F);
    EXPECT_EQ(atoms[0].vy, 4.0F);
    EXPECT_EQ(atoms[0].speed, 5.0F);
    EXPECT_EQ(atoms[0].radius, 5);
    EXPECT_EQ(atoms[1].radius, 255);
    EXPECT_EQ(atoms.GetMinVelocity(), 1.0F);
    EXPECT_EQ(atoms.GetMaxVelocity(), 5.0F);
    EXPECT_EQ(atoms.GetTotVelocity(), 6.0F);
    EXPECT_EQ(atoms.GetAvgVelocity(), 3.0F);
}

// Random finite floats, a denormal number, the largest number and both zeros keep their bits.
TEST(StateFile, FloatsOfAnyBitPatternComeBack)
{
    constexpr int c_iPatterns = 20'000;
    std::mt19937 random(1);
    CAtoms atoms;
    atoms.Allocate(c_iPatterns);
    for (std::int32_t index = 0; index < c_iPatterns; ++index)
    {
        const auto draw = [&random] {
            float value = std::numeric_limits<float>::infinity();
            while (!std::isfinite(value))
            {
                value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
            }
            return value;
        };
        atoms[index].x = draw();
        atoms[index].y = draw();
        atoms[index].radius = 1;
    }
    atoms[0].x = std::numeric_limits<float>::denorm_min();
    atoms[1].x = std::numeric_limits<float>::max();
    atoms[2].x = -0.0F;

    const std::string sText = Save(atoms);
    const CAtoms loaded = Load(sText);

    ASSERT_EQ(loaded.GetCount(), c_iPatterns);
    EXPECT_TRUE(std::equal(atoms.GetAtoms(), atoms.GetAtoms() + c_iPatterns, loaded.GetAtoms(), IsSameAtom));
    EXPECT_EQ(Save(loaded), sText);
}

// Spreadsheets on Windows write these line ends.
TEST(StateFile, LineEndsOfWindowsAreReadToo)
{
    EXPECT_EQ(Load("x,y,vx,vy,radius\r\n1,2,3,4,5\r\n1,2,3,4,5\r\n").GetCount(), 2);
}

TEST(StateFile, AnEmptyFileIsRefused)
{
    EXPECT_EQ(GetError(""), "a.csv: the file is empty; its first line must be x,y,vx,vy,radius");
    EXPECT_EQ(GetError(c_sHeader), "a.csv: there are no atoms after the header");
}

TEST(StateFile, AFileThatIsNoCsvIsRefused)
{
    EXPECT_EQ(GetError("\x1BPNG\x1A\n"), "a.csv, line 1: the header is '\\x1BPNG\\x1A' instead of 'x,y,vx,vy,radius'");
    EXPECT_EQ(GetError("X,Y,VX,VY,R\n"), "a.csv, line 1: the header is 'X,Y,VX,VY,R' instead of 'x,y,vx,vy,radius'");
    EXPECT_EQ(GetError(std::string(5'000, 'x') + "\n"),
              "a.csv, line 1: the line is longer than 4096 characters: this is no CSV file");
    EXPECT_EQ(GetError(std::string(5'000'000, 'x')),
              "a.csv, line 1: the line is longer than 4096 characters: this is no CSV file");
}

TEST(StateFile, ALongHeaderIsShownInPart)
{
    EXPECT_EQ(GetError(std::string(1'000, 'x') + "\n"),
              "a.csv, line 1: the header is '" + std::string(40, 'x') + "...' instead of 'x,y,vx,vy,radius'");
}

TEST(StateFile, ARowWithTooFewOrTooManyColumnsIsRefused)
{
    EXPECT_EQ(GetError(c_sHeader + "1,2,3,4,5\n1,2,3,4\n"),
              "a.csv, line 3, column 4 (vy): the row has 4 columns instead of 5 (x,y,vx,vy,radius)");
    EXPECT_EQ(GetError(c_sHeader + "1,2,3,4,5,6\n"),
              "a.csv, line 2, column 5 (radius): the row has 6 columns instead of 5 (x,y,vx,vy,radius)");
    EXPECT_EQ(GetError(c_sHeader + "1,2,3,4,5\n\n"),
              "a.csv, line 3, column 1 (x): the row has 1 column instead of 5 (x,y,vx,vy,radius)");
}

TEST(StateFile, ATextThatIsNoNumberIsRefused)
{
    EXPECT_EQ(GetError(c_sHeader + "abc,2,3,4,5\n"), "a.csv, line 2, column 1 (x): 'abc' is no number");
    EXPECT_EQ(GetError(c_sHeader + "1,2 ,3,4,5\n"), "a.csv, line 2, column 2 (y): '2 ' is no number");
    EXPECT_EQ(GetError(c_sHeader + "1, 2,3,4,5\n"), "a.csv, line 2, column 2 (y): ' 2' is no number");
    EXPECT_EQ(GetError(c_sHeader + "1,+2,3,4,5\n"), "a.csv, line 2, column 2 (y): '+2' is no number");
    EXPECT_EQ(GetError(c_sHeader + "1,2,0x3,4,5\n"), "a.csv, line 2, column 3 (vx): '0x3' is no number");
    EXPECT_EQ(GetError(c_sHeader + "1,2,3,,5\n"), "a.csv, line 2, column 4 (vy): the number is missing");
    EXPECT_EQ(GetError(c_sHeader + "\"1\",2,3,4,5\n"), "a.csv, line 2, column 1 (x): '\"1\"' is no number");
    EXPECT_EQ(GetError(c_sHeader + std::string("1\0002", 3) + ",2,3,4,5\n"),
              "a.csv, line 2, column 1 (x): '1\\x002' is no number");
}

TEST(StateFile, ANumberThatIsNotFiniteIsRefused)
{
    EXPECT_EQ(GetError(c_sHeader + "nan,2,3,4,5\n"), "a.csv, line 2, column 1 (x): 'nan' is not finite");
    EXPECT_EQ(GetError(c_sHeader + "1,2,-inf,4,5\n"), "a.csv, line 2, column 3 (vx): '-inf' is not finite");
    EXPECT_EQ(GetError(c_sHeader + "1,2,3,infinity,5\n"), "a.csv, line 2, column 4 (vy): 'infinity' is not finite");
    EXPECT_EQ(GetError(c_sHeader + "1,1e39,3,4,5\n"),
              "a.csv, line 2, column 2 (y): '1e39' does not fit a 32-bit float");
    EXPECT_EQ(GetError(c_sHeader + "1,2,1e20,4,5\n"),
              "a.csv, line 2: the speed of this atom does not fit a 32-bit float");
}

TEST(StateFile, ARadiusOutOfRangeIsRefused)
{
    for (const std::string& sRadius :
         std::vector<std::string>{"0", "256", "-1", "2.5", "1e1", "", " 3", "99999999999999999999"})
    {
        EXPECT_EQ(GetError(std::string(c_sHeader).append("1,2,3,4,").append(sRadius).append("\n")),
                  "a.csv, line 2, column 5 (radius): '" + sRadius + "' is no whole number from 1 to 255");
    }
}

// The end "...,1" may be a part of "...,12", so the row is refused.
TEST(StateFile, ALastLineWithoutAnEndIsRefused)
{
    EXPECT_EQ(GetError(c_sHeader + "1,2,3,4,5\n1,2,3,4,1"),
              "a.csv, line 3: the file ends within this line: it has no line end and may be cut off");
}

TEST(StateFile, MoreThanAMillionAtomsAreRefused)
{
    std::string sText = c_sHeader;
    for (int index = 0; index < 1'000'000; ++index)
    {
        sText += "1,2,0,0,5\n";
    }
    EXPECT_EQ(Load(sText).GetCount(), 1'000'000);
    EXPECT_EQ(GetError(sText + "1,2,0,0,5\n"), "a.csv, line 1000002: more than 1000000 atoms");
}

TEST(StateFile, ARefusedFileLeavesTheAtomsUnchanged)
{
    CAtoms atoms = MakeAtoms({MakeAtom(7, 8, 9)});
    std::istringstream stream(c_sHeader + "1,2,3,4,5\n1,2,3,4,0\n");

    EXPECT_THROW(LoadState(stream, "a.csv", atoms), CHeadlessError);
    ASSERT_EQ(atoms.GetCount(), 1);
    EXPECT_EQ(atoms[0].x, 7.0F);
}

TEST(StateFile, AStateThatIsNotFiniteIsNotSaved)
{
    CAtoms atoms = MakeAtoms({MakeAtom(1, 2, 3), MakeAtom(1, 2, 3)});
    atoms[1].vy = std::numeric_limits<float>::quiet_NaN();

    try
    {
        Save(atoms);
        FAIL() << "the state was saved";
    }
    catch (const CHeadlessError& error)
    {
        EXPECT_STREQ(error.what(), "the state cannot be saved: vy of atom 2 is not finite");
    }
}

TEST(StateFile, TheProgramNamesTheFileItCannotRead)
{
    const CTemporaryFolder folder;
    const std::string sBad = folder.WriteFile("bad.csv", c_sHeader + "1,2,3\n");
    const std::string sMissing = folder.GetPath("none.csv");

    const CProgramResult bad = RunProgram({"--load-state", sBad, "--width", "100", "--height", "100"});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_EQ(bad.err,
              "error: " + sBad + ", line 2, column 3 (vx): the row has 3 columns instead of 5 (x,y,vx,vy,radius)\n");
    const CProgramResult missing = RunProgram({"--load-state", sMissing, "--width", "100", "--height", "100"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.err, "error: " + sMissing + ": there is no such file\n");
    const CProgramResult directory =
        RunProgram({"--load-state", folder.GetPath(""), "--width", "100", "--height", "100"});
    EXPECT_EQ(directory.exitCode, 1);
    EXPECT_EQ(directory.err, "error: " + folder.GetPath("") + ": this is a folder, not a file\n");
}
