#include "headless/console/HeadlessError.h"
#include "headless/files/COutputFile.h"
#include "headless/files/SystemFile.h"
#include "headless/files/TemporaryFiles.h"
#include "tests/classes/core/CEnvironmentChange.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
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
        EXPECT_EQ(error.GetExitCode(), 1);
        return error.what();
    }
    return "";
}

using CNames = std::vector<std::string>;

} // namespace

TEST(OutputFile, HoldsTheWrittenBytesAndLeavesNoOtherFileInTheFolder)
{
    const CTemporaryFolder folder;
    const std::string sLarge(1'000'000, 'x');
    COutputFile file(folder.GetPath("a.csv"));
    file.Write("first\n");
    file.Write(sLarge);
    file.Write("\nlast\n");
    file.Commit();

    EXPECT_EQ(ReadFile(folder.GetPath("a.csv")), "first\n" + sLarge + "\nlast\n");
    EXPECT_EQ(folder.GetNames(), CNames{"a.csv"});
}

TEST(OutputFile, TheOldFileStaysUntilTheNewOneIsComplete)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.WriteFile("a.csv", "old");
    COutputFile file(sPath);
    file.Write(std::string(1'000'000, 'x'));

    EXPECT_EQ(ReadFile(sPath), "old");
    file.Commit();
    EXPECT_EQ(ReadFile(sPath).size(), 1'000'000U);
    EXPECT_EQ(folder.GetNames(), CNames{"a.csv"});
}

TEST(OutputFile, WithoutACommitTheOldFileIsUnchanged)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.WriteFile("a.csv", "old");
    {
        COutputFile file(sPath);
        file.Write(std::string(1'000'000, 'x'));
        EXPECT_EQ(folder.GetNames().size(), 2U);
    }

    EXPECT_EQ(ReadFile(sPath), "old");
    EXPECT_EQ(folder.GetNames(), CNames{"a.csv"});
}

TEST(OutputFile, AKeptFileStaysUnderItsPartialNameUntilTheCommit)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.WriteFile("a.csv", "old");
    {
        COutputFile file(sPath);
        file.Write("first");
        file.Keep(false);
        EXPECT_EQ(ReadFile(folder.GetPath("a.csv.partial")), "first");
        file.Write(" second");
        file.Keep(true);
    }
    EXPECT_EQ(ReadFile(folder.GetPath("a.csv.partial")), "first second");
    EXPECT_EQ(ReadFile(sPath), "old");

    COutputFile file(sPath);
    file.Write("third");
    file.Keep(true);
    file.Commit();
    EXPECT_EQ(ReadFile(sPath), "third");
    EXPECT_EQ(folder.GetNames(), CNames{"a.csv"});
}

TEST(OutputFile, ASignalRemovesAFileThatIsStillOpenAndNoOther)
{
    const CTemporaryFolder folder;
    COutputFile done(folder.GetPath("done.csv"));
    done.Commit();
    COutputFile kept(folder.GetPath("kept.csv"));
    kept.Keep(false);
    const fs::path open = PathFromUtf8(folder.GetPath("open.tmp"));
    int error = 0;
    const int file = CreateTemporaryFile(open, false, error);
    ASSERT_EQ(error, 0);

    RemoveTemporaryFiles();
    // Windows keeps the file until it is closed, at the end of the program at the latest.
    EXPECT_EQ(SystemFile_Close(file), 0);
    EXPECT_EQ(folder.GetNames(), (CNames{"done.csv", "kept.csv.partial"}));
    ForgetTemporaryFile(open);
}

TEST(OutputFile, NamesMayHoldLettersOutsideAscii)
{
    const CTemporaryFolder folder;
    const std::string sName = "\xC3\xA4tom \xE2\x98\x83.csv";
    COutputFile file(folder.GetPath(sName));
    file.Write("x");
    file.Commit();

    EXPECT_EQ(ReadFile(folder.GetPath(sName)), "x");
    EXPECT_TRUE(fs::exists(PathFromUtf8(folder.GetPath(sName))));
}

TEST(OutputFile, AFolderThatDoesNotExistIsAnError)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("none/a.csv");

    EXPECT_EQ(GetError(sPath), sPath + ": cannot be written: its folder does not exist");
}

TEST(OutputFile, AFolderIsNotReplaced)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("inner");
    fs::create_directory(PathFromUtf8(sPath));

    EXPECT_EQ(GetError(sPath), sPath + ": cannot be written: it is a folder");
    EXPECT_EQ(folder.GetNames(), CNames{"inner"});
}

TEST(OutputFile, AReadOnlyFileIsNotReplaced)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.WriteFile("a.csv", "old");
    fs::permissions(PathFromUtf8(sPath), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);

    EXPECT_EQ(GetError(sPath), sPath + ": cannot be written: it is read-only");
    EXPECT_EQ(ReadFile(sPath), "old");
    EXPECT_EQ(folder.GetNames(), CNames{"a.csv"});
}

TEST(OutputFile, ACheckLeavesNothingBehind)
{
    const CTemporaryFolder folder;
    COutputFile::Check(folder.GetPath("a.csv"));
    EXPECT_EQ(folder.GetNames(), CNames{});
    COutputFile::Check(folder.WriteFile("b.csv", "old"));
    EXPECT_EQ(folder.GetNames(), CNames{"b.csv"});
    EXPECT_EQ(ReadFile(folder.GetPath("b.csv")), "old");
}

TEST(OutputFile, TheProgramChecksItsFilesBeforeItComputes)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("none/a.csv");

    // A run that has begun ends at once with another error.
    const std::atomic<int> exitCode{130};
    for (const char* const sOption : {"--save-state", "--stats", "--trajectory", "--video", "--picture"})
    {
        const CProgramResult result = RunProgram({"--iterations", "1", sOption, sPath}, false, &exitCode);
        EXPECT_EQ(result.exitCode, 1) << sOption;
        EXPECT_EQ(result.err, "error: " + sPath + ": cannot be written: its folder does not exist\n") << sOption;
        EXPECT_EQ(result.out, "") << sOption;
    }
}

#ifndef _WIN32

TEST(OutputFile, AFullDiskIsAnError)
{
    EXPECT_EQ(GetError("/dev/full"), "/dev/full: cannot be written: No space left on device");
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

// Hours of computing are not lost because the disk is full at their end.
TEST(OutputFile, WhatCannotBeWrittenIsToldAfterTheSummary)
{
    const CTemporaryFolder folder;
    const CEnvironmentChange temporary("TMPDIR", folder.GetPath("").c_str());
    const std::string sFull = "error: /dev/full: cannot be written: No space left on device";
    for (const char* const sOption : {"--stats", "--picture"})
    {
        const CProgramResult result =
            RunProgram({"--iterations", "1", "--seed", "4", sOption, "/dev/full", "--save-state", folder.GetPath("a")});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.err, sFull + "\n");
        EXPECT_EQ(GetSummaryValue(result.out, "iterations"), "1");
    }
    const CProgramResult result = RunProgram({"--iterations", "1", "--seed", "4", "--save-state", "/dev/full"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(GetSummaryValue(result.out, "iterations"), "1");
    ASSERT_EQ(folder.GetNames().size(), 2U);
    const std::string sElsewhere = folder.GetPath(folder.GetNames().back());
    EXPECT_EQ(result.err, sFull + "; the state is in " + sElsewhere + " instead\n");
    EXPECT_EQ(ReadFile(sElsewhere), ReadFile(folder.GetPath("a")));
    EXPECT_NE(ReadFile(sElsewhere), "");
}

TEST(OutputFile, ADeviceIsWrittenDirectlyAndNotReplaced)
{
    EXPECT_EQ(GetError("/dev/null"), "");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(OutputFile, ANameThatIsTooLongIsFoundBeforeTheRun)
{
    const CTemporaryFolder folder;
    for (const std::size_t uLength : {std::size_t{241}, std::size_t{255}, std::size_t{256}})
    {
        for (const std::string sOption : {"--save-state", "--stats", "--picture"})
        {
            // This run would take years.
            const CProgramResult result =
                RunProgram({"--iterations", "1000000000000", sOption, folder.GetPath(std::string(uLength, 'a'))});
            EXPECT_EQ(result.exitCode, 1);
            EXPECT_THAT(result.err, testing::EndsWith(" (while it is written, 15 characters more)\n"));
        }
    }
    EXPECT_EQ(GetError(folder.GetPath(std::string(240, 'a'))), "");
    const CProgramResult numbered = RunProgram({"--iterations", "1000000000000", "--picture-every", "1000000000000",
                                                "--picture", folder.GetPath(std::string(240, 'a'))});
    EXPECT_THAT(numbered.err, testing::EndsWith(" (while it is written, 15 characters more)\n"));
}

TEST(OutputFile, ALinkStaysALink)
{
    const CTemporaryFolder folder;
    const std::string sTarget = folder.WriteFile("target.csv", "old");
    const std::string sLink = folder.GetPath("link.csv");
    fs::create_symlink(sTarget, sLink);

    EXPECT_EQ(GetError(sLink), "");
    EXPECT_TRUE(fs::is_symlink(sLink));
    EXPECT_EQ(ReadFile(sTarget), "something");
}

TEST(OutputFile, ALinkThatLeadsToNothingYetIsFollowed)
{
    const CTemporaryFolder folder;
    const std::string sLink = folder.GetPath("link.csv");
    fs::create_symlink("target.csv", sLink);

    EXPECT_EQ(GetError(sLink), "");
    EXPECT_TRUE(fs::is_symlink(sLink));
    EXPECT_EQ(ReadFile(folder.GetPath("target.csv")), "something");
}

TEST(OutputFile, TheTemporaryFileHasThePermissionsOfTheOldOne)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.WriteFile("a.csv", "old");
    const fs::perms old = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(sPath, old);
    const COutputFile file(sPath);

    const CNames names = folder.GetNames();
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(fs::status(folder.GetPath(names.back())).permissions(), old);
}

TEST(OutputFile, TheNewFileHasThePermissionsOfTheOldOne)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.WriteFile("a.csv", "old");
    const fs::perms old = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(sPath, old);

    EXPECT_EQ(GetError(sPath), "");
    EXPECT_EQ(fs::status(sPath).permissions(), old);
}

#endif
