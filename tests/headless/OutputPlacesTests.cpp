#include "headless/console/HeadlessError.h"
#include "headless/files/SystemFile.h"
#include "headless/options/COptions.h"
#include "headless/OutputPlaces.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

using testing::HasSubstr;
using testing::StartsWith;

namespace
{

std::string GetError(const std::vector<std::string>& arguments)
{
    try
    {
        const COptions options = ParseOptions(arguments).options;
        CheckOutputPlaces(options, options.iterations);
    }
    catch (const CUsageError& error)
    {
        return error.what();
    }
    return "";
}

class OutputPlaces : public testing::Test
{
protected:
    std::string In(const std::string& sName) const { return m_Folder.GetPath(sName); }

    CTemporaryFolder m_Folder;
};

} // namespace

TEST_F(OutputPlaces, DifferentFilesAreAllowed)
{
    m_Folder.WriteFile("a.csv", "x");
    EXPECT_EQ(GetError({"--load-state", In("a.csv"), "--settings", In("a.ini"), "--save-state", In("b.csv"), "--stats",
                        In("c.csv"), "--picture", In("p.png"), "--picture-every", "10"}),
              "");
    EXPECT_EQ(GetError({"--load-state", In("a.csv"), "--settings", In("a.csv")}), "");
    EXPECT_EQ(GetError({"--load-state", "-", "--save-state", "-"}), "");
}

TEST_F(OutputPlaces, AnOutputDoesNotReplaceAnInput)
{
    const std::string sFile = m_Folder.WriteFile("a.csv", "x");
    for (const char* const sInput : {"--load-state", "--settings"})
    {
        for (const char* const sOutput : {"--save-state", "--stats", "--trajectory", "--video", "--picture"})
        {
            EXPECT_THAT(GetError({sInput, sFile, sOutput, sFile}), StartsWith(std::string(sOutput) + ": '"));
            EXPECT_THAT(GetError({sInput, sFile, sOutput, sFile}),
                        HasSubstr(std::string(" is the same file as ") + sInput + ": '"));
        }
    }
}

// A run of years that would begin all the same does not end in this test.
TEST_F(OutputPlaces, TheProgramRefusesBeforeItComputes)
{
    const std::string sIni = m_Folder.WriteFile("a.ini", "[Settings]\n");
    const CProgramResult result =
        RunProgram({"--settings", sIni, "--save-state", In("./a.ini"), "--iterations", "1000000000000"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, StartsWith("error: --save-state: "));
    EXPECT_EQ(ReadFile(sIni), "[Settings]\n");
}

TEST_F(OutputPlaces, AnotherPathToOneFileIsFound)
{
    fs::create_directory(PathFromUtf8(In("inner")));
    EXPECT_NE(GetError({"--save-state", In("new.csv"), "--stats", In("inner/../new.csv")}), "");
    EXPECT_NE(GetError({"--save-state", In("./new.csv"), "--stats", In("new.csv")}), "");
    EXPECT_EQ(GetError({"--save-state", In("new.csv"), "--stats", In("inner/new.csv")}), "");
    m_Folder.WriteFile("old.csv", "x");
    EXPECT_NE(GetError({"--save-state", In("old.csv"), "--stats", In("inner/../old.csv")}), "");
}

TEST_F(OutputPlaces, ANumberedPictureIsFound)
{
    m_Folder.WriteFile("gas-050.png", "x");
    const std::vector<std::string> picture = {"--picture", In("gas.png"),  "--picture-every",
                                              "50",        "--iterations", "100"};
    const auto getError = [&](const char* sOption, const std::string& sName) {
        std::vector<std::string> arguments = picture;
        arguments.insert(arguments.end(), {sOption, In(sName)});
        return GetError(arguments);
    };

    EXPECT_THAT(getError("--save-state", "gas-100.png"), HasSubstr("is the same file as a picture of --picture-every"));
    EXPECT_NE(getError("--settings", "gas-050.png"), "");
    EXPECT_NE(getError("--load-state", "./gas-050.png"), "");
    EXPECT_EQ(getError("--stats", "gas-051.png"), "");
    EXPECT_EQ(getError("--stats", "gas-150.png"), "");
}

#ifdef _WIN32

TEST_F(OutputPlaces, LettersOfEitherCaseAndDotsAtTheEndAreOneName)
{
    m_Folder.WriteFile("old.csv", "x");
    EXPECT_NE(GetError({"--load-state", In("old.csv"), "--save-state", In("OLD.csv")}), "");
    EXPECT_NE(GetError({"--save-state", In("new.csv"), "--stats", In("New.CSV")}), "");
    EXPECT_NE(GetError({"--save-state", In("new.csv"), "--stats", In("new.csv.")}), "");
    EXPECT_NE(GetError({"--picture", In("gas.png"), "--picture-every", "500", "--stats", In("GAS-0500.png")}), "");
}

#else

TEST_F(OutputPlaces, LettersOfEitherCaseAreTwoNames)
{
    EXPECT_EQ(GetError({"--save-state", In("new.csv"), "--stats", In("New.csv")}), "");
}

TEST_F(OutputPlaces, LinksAreFollowed)
{
    const std::string sFile = m_Folder.WriteFile("a.csv", "x");
    fs::create_symlink("a.csv", In("link.csv"));
    fs::create_symlink("link.csv", In("link2.csv"));
    fs::create_hard_link(sFile, In("hard.csv"));
    fs::create_symlink("none.csv", In("dangling.csv"));
    fs::create_directory_symlink(".", In("folder"));

    EXPECT_NE(GetError({"--load-state", sFile, "--save-state", In("link.csv")}), "");
    EXPECT_NE(GetError({"--load-state", sFile, "--save-state", In("link2.csv")}), "");
    EXPECT_NE(GetError({"--load-state", sFile, "--save-state", In("hard.csv")}), "");
    EXPECT_NE(GetError({"--save-state", In("none.csv"), "--stats", In("dangling.csv")}), "");
    EXPECT_NE(GetError({"--save-state", In("new.csv"), "--stats", In("folder/new.csv")}), "");
}

TEST_F(OutputPlaces, ANumberedPictureThatIsALinkIsFollowed)
{
    const std::string sIni = m_Folder.WriteFile("a.ini", "[Settings]\n");
    fs::create_symlink("a.ini", In("gas-10.png"));
    fs::create_symlink("gas.png", In("gas-20.png"));
    const auto getError = [this](const std::string& sEvery, const std::string& sIniPath) {
        return GetError(
            {"--picture", In("gas.png"), "--picture-every", sEvery, "--iterations", "50", "--settings", sIniPath});
    };

    EXPECT_NE(getError("10", sIni), "");
    EXPECT_EQ(getError("25", sIni), "");
    EXPECT_NE(getError("20", In("other.ini")), ""); // gas-20.png leads to gas.png
}

#endif

TEST_F(OutputPlaces, ARunMayReplaceTheCheckpointThatItContinuesButNoOtherOutputMay)
{
    const std::string sPath = m_Folder.WriteFile("a.ckpt", "old");
    EXPECT_EQ(GetError({"--resume", sPath, "--checkpoint", sPath}), "");
    EXPECT_THAT(GetError({"--resume", sPath, "--save-state", sPath}), HasSubstr("is the same file as"));
    EXPECT_THAT(GetError({"--checkpoint", sPath, "--stats", sPath}), HasSubstr("is the same file as"));
}

TEST_F(OutputPlaces, NothingMayTakeTheNameOfAGrowingFile)
{
    const std::string sStats = m_Folder.GetPath("s.csv");
    EXPECT_THAT(GetError({"--stats", sStats, "--checkpoint", sStats + ".partial"}), HasSubstr("is the same file as"));
    EXPECT_THAT(GetError({"--histogram", sStats, "--stats", sStats + ".partial"}), HasSubstr("is the same file as"));
    EXPECT_THAT(GetError({"--histogram", sStats, "--stats", sStats}), HasSubstr("is the same file as"));
    EXPECT_THAT(GetError({"--histogram", "-", "--stats", "-"}), HasSubstr("is the same file as"));
    EXPECT_EQ(GetError({"--stats", sStats, "--checkpoint", sStats + ".ckpt"}), "");
}
