#include "headless/COutputFile.h"
#include "headless/HeadlessError.h"
#include "headless/SystemFile.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace
{

std::string GetError(const std::string& sPath)
{
    try
    {
        COutputFile file(sPath);
        file.Write("something");
        file.Commit();
    }
    catch (const CHeadlessError& error)
    {
        EXPECT_EQ(1, error.GetExitCode());
        return error.what();
    }
    return "";
}

using CNames = std::vector<std::string>;

} // namespace

TEST(OutputFile, HoldsWhatWasWrittenAndNothingElseStaysInTheFolder)
{
    const CTemporaryFolder folder;
    const std::string sLarge(1'000'000, 'x');
    COutputFile file(folder.GetPath("a.csv"));
    file.Write("first\n");
    file.Write(sLarge);
    file.Write("\nlast\n");
    file.Commit();

    EXPECT_EQ("first\n" + sLarge + "\nlast\n", ReadFile(folder.GetPath("a.csv")));
    EXPECT_EQ(CNames{"a.csv"}, folder.GetNames());
}

TEST(OutputFile, TheOldFileStaysUntilTheNewOneIsComplete)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.WriteFile("a.csv", "old");
    COutputFile file(sPath);
    file.Write(std::string(1'000'000, 'x'));

    EXPECT_EQ("old", ReadFile(sPath));
    file.Commit();
    EXPECT_EQ(1'000'000U, ReadFile(sPath).size());
    EXPECT_EQ(CNames{"a.csv"}, folder.GetNames());
}

TEST(OutputFile, WithoutACommitTheOldFileIsAsItWas)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.WriteFile("a.csv", "old");
    {
        COutputFile file(sPath);
        file.Write(std::string(1'000'000, 'x'));
        EXPECT_EQ(2U, folder.GetNames().size());
    }

    EXPECT_EQ("old", ReadFile(sPath));
    EXPECT_EQ(CNames{"a.csv"}, folder.GetNames());
}

TEST(OutputFile, NamesMayHoldEveryLetter)
{
    const CTemporaryFolder folder;
    const std::string sName = "\xC3\xA4tom \xE2\x98\x83.csv";
    COutputFile file(folder.GetPath(sName));
    file.Write("x");
    file.Commit();

    EXPECT_EQ("x", ReadFile(folder.GetPath(sName)));
    EXPECT_TRUE(fs::exists(PathFromUtf8(folder.GetPath(sName))));
}

TEST(OutputFile, AFolderThatDoesNotExistIsAnError)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("none/a.csv");

    EXPECT_EQ(sPath + ": cannot be written: its folder does not exist", GetError(sPath));
}

TEST(OutputFile, AFolderIsNoFile)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("inner");
    fs::create_directory(PathFromUtf8(sPath));

    EXPECT_EQ(sPath + ": cannot be written: it is a folder", GetError(sPath));
    EXPECT_EQ(CNames{"inner"}, folder.GetNames());
}

TEST(OutputFile, AReadOnlyFileIsNotReplaced)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.WriteFile("a.csv", "old");
    fs::permissions(PathFromUtf8(sPath), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);

    EXPECT_EQ(sPath + ": cannot be written: it is read-only", GetError(sPath));
    EXPECT_EQ("old", ReadFile(sPath));
    EXPECT_EQ(CNames{"a.csv"}, folder.GetNames());
}

TEST(OutputFile, TheProgramSaysSoBeforeItComputesAnything)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("none/a.csv");

    // Some years of computing.
    const CProgramResult result = RunProgram({"--iterations", "1000000000000", "--save-state", sPath});
    EXPECT_EQ(1, result.exitCode);
    EXPECT_EQ("error: " + sPath + ": cannot be written: its folder does not exist\n", result.err);
    EXPECT_EQ("", result.out);
}

#ifndef _WIN32

TEST(OutputFile, AFullDiskIsAnError)
{
    EXPECT_EQ("/dev/full: cannot be written: No space left on device", GetError("/dev/full"));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    for (const char* const sOption : {"--save-state", "--stats", "--picture"})
    {
        const CProgramResult result = RunProgram({"--iterations", "1", sOption, "/dev/full"});
        EXPECT_EQ(1, result.exitCode);
        EXPECT_EQ("error: /dev/full: cannot be written: No space left on device\n", result.err);
    }
}

TEST(OutputFile, ADeviceIsWrittenToAndNotReplaced)
{
    EXPECT_EQ("", GetError("/dev/null"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(OutputFile, ALinkStaysALink)
{
    const CTemporaryFolder folder;
    const std::string sTarget = folder.WriteFile("target.csv", "old");
    const std::string sLink = folder.GetPath("link.csv");
    fs::create_symlink(sTarget, sLink);

    EXPECT_EQ("", GetError(sLink));
    EXPECT_TRUE(fs::is_symlink(sLink));
    EXPECT_EQ("something", ReadFile(sTarget));
}

TEST(OutputFile, WhoMayReadTheOldFileMayReadTheNewOne)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.WriteFile("a.csv", "old");
    const fs::perms old = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(sPath, old);

    EXPECT_EQ("", GetError(sPath));
    EXPECT_EQ(old, fs::status(sPath).permissions());
}

#endif
