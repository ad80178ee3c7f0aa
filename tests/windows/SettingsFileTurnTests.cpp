#include "classes/windows/system/CPathTurn.h"
#include "tests/windows/CRunningApplication.h"

#include <chrono>
#include <filesystem>
#include <future>
#include <gtest/gtest.h>
#include <thread>

namespace
{
class SettingsFileTurn : public testing::Test
{
protected:
    SettingsFileTurn() { Remove(); }
    ~SettingsFileTurn() override { Remove(); }

    static void Remove() { DeleteFileW(CRunningApplication::GetSettingsPath().c_str()); }

    static CPathTurn TakeTurn() { return CPathTurn(CWString(CRunningApplication::GetSettingsPath().c_str()), 0); }
};
} // namespace

// The turn of this thread stands for that of another program, which is in the middle of writing.
TEST_F(SettingsFileTurn, WhileAnotherProgramHasItsTurnNothingIsWrittenAndNothingHangs)
{
    {
        CRunningApplication application;
        {
            const CPathTurn turn = TakeTurn();
            ASSERT_TRUE(turn.MayWrite());
            application.SetControlText(L"Tot_atoms", L"8");
            application.PressButton();
            EXPECT_TRUE(application.WaitForWorker(true));
            EXPECT_FALSE(std::filesystem::exists(CRunningApplication::GetSettingsPath()));
        }
        application.PressButton();
        EXPECT_TRUE(application.WaitForWorker(false));
        application.PressButton();
        EXPECT_TRUE(application.WaitForWorker(true));
        EXPECT_EQ(CRunningApplication::ReadSetting(L"Tot_atoms"), L"8");

        const CPathTurn turn = TakeTurn();
        ASSERT_TRUE(turn.MayWrite());
        EXPECT_TRUE(application.Close());
    }
    EXPECT_EQ(CRunningApplication::ReadSetting(L"WndLeft"), L"<missing>");
}

// A start that did not wait would show the new width beside the old height.
TEST_F(SettingsFileTurn, AStartReadsTheFileWhenAnotherProgramHasWrittenAllOfIt)
{
    static constexpr std::chrono::milliseconds c_LongerThanAStartTakes{400};
    CRunningApplication::WriteSetting(L"World_height", L"300");
    std::promise<void> halfWritten;
    std::thread other([&halfWritten] {
        const CPathTurn turn = TakeTurn();
        CRunningApplication::WriteSetting(L"World_width", L"700");
        halfWritten.set_value();
        std::this_thread::sleep_for(c_LongerThanAStartTakes);
        CRunningApplication::WriteSetting(L"World_height", L"600");
    });
    halfWritten.get_future().wait();
    const CRunningApplication application(true);
    other.join();

    EXPECT_EQ(application.GetControlText(L"Width"), L"700");
    EXPECT_EQ(application.GetControlText(L"Height"), L"600");
}

TEST_F(SettingsFileTurn, AStartGivesUpWaitingForAProgramThatNeverEndsItsTurn)
{
    CRunningApplication::WriteSetting(L"World_width", L"700");
    const CPathTurn turn = TakeTurn();
    const CRunningApplication application(true);

    EXPECT_EQ(application.GetControlText(L"Width"), L"700");
}
