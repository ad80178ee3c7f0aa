#include "headless/COutputFile.h"
#include "headless/HeadlessError.h"
#include "headless/SystemFile.h"
#include "headless/TemporaryFiles.h"
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
    const int file = CreateTemporaryFile(open, error);
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

TEST(OutputFile, TheProgramChecksItsFilesBeforeItComputes)
{
    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("none/a.csv");

    // A run that has begun ends at once with another error.
    const std::atomic<bool> bInterrupted{true};
    for (const char* const sOption : {"--save-state", "--stats", "--picture"})
    {
        const CProgramResult result = RunProgram({"--iterations", "1", sOption, sPath}, false, &bInterrupted);
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
    for (const char* const sOption : {"--save-state", "--stats", "--picture"})
    {
        const CProgramResult result = RunProgram({"--iterations", "1", sOption, "/dev/full"});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.err, "error: /dev/full: cannot be written: No space left on device\n");
    }
}

TEST(OutputFile, ADeviceIsWrittenDirectlyAndNotReplaced)
{
    EXPECT_EQ(GetError("/dev/null"), "");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
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
