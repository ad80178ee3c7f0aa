#include "tests/windows/CRunningApplication.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sstream>

namespace
{
constexpr COLORREF c_crRed = 255;
constexpr COLORREF c_crGrey = 0x808080;
constexpr COLORREF c_crGreen = 65280;

COLORREF GetColour(const CRunningApplication& application, const wchar_t* sKey)
{
    COLORREF crColour = CLR_INVALID;
    application.Do([&](CKinetarium& inside) { crColour = CKinetariumProbe::GetColour(inside, sKey); });
    return crColour;
}

bool IsEnabled(const CRunningApplication& application, const wchar_t* sKey)
{
    return IsWindowEnabled(application.FindControl(sKey)) != FALSE;
}

class SettingsFile_InTheApplication : public testing::Test
{
protected:
    SettingsFile_InTheApplication() { Remove(); }
    ~SettingsFile_InTheApplication() override { Remove(); }

    static void Remove()
    {
        const std::wstring sPath = CRunningApplication::GetSettingsPath();
        SetFileAttributesW(sPath.c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(sPath.c_str());
        RemoveDirectoryW(sPath.c_str());
    }

    static std::string ReadFile()
    {
        std::ifstream file(std::filesystem::path(CRunningApplication::GetSettingsPath()), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    static void WriteFile(const std::string& sText)
    {
        std::ofstream file(std::filesystem::path(CRunningApplication::GetSettingsPath()), std::ios::binary);
        file << sText;
    }
};
} // namespace

TEST_F(SettingsFile_InTheApplication, WithoutAFileThePanelShowsTheDefaults)
{
    const CRunningApplication application;

    EXPECT_EQ(application.GetControlText(L"Width"), L"512");
    EXPECT_EQ(application.GetControlText(L"Height"), L"512");
    EXPECT_EQ(application.GetControlText(L"Tot_atoms"), L"256");
    EXPECT_EQ(application.GetControlText(L"Min_radius"), L"3");
    EXPECT_EQ(application.GetControlText(L"Max_radius"), L"5");
    EXPECT_EQ(application.GetControlText(L"Colour_mode"), L"Speed");
    EXPECT_EQ(application.GetControlText(L"Colour_1_factor"), L"0.75");
    EXPECT_EQ(application.GetControlText(L"Colour_2_factor"), L"");
    EXPECT_EQ(application.GetControlText(L"Colour_3_factor"), L"1.25");
    EXPECT_EQ(GetColour(application, L"Background_colour"), 0u);
    EXPECT_EQ(GetColour(application, L"Colour_1"), c_crRed);
    EXPECT_EQ(GetColour(application, L"Colour_2"), c_crGrey);
    EXPECT_EQ(GetColour(application, L"Colour_3"), c_crGreen);
    EXPECT_FALSE(IsEnabled(application, L"Colour_2_factor"));
    EXPECT_TRUE(IsEnabled(application, L"Colour_1_factor"));
}

TEST_F(SettingsFile_InTheApplication, AFileWithOnlyFixedModeGivesTheDefaultsOfFixedMode)
{
    CRunningApplication::WriteSetting(L"Atoms_colour_mode", L"0");
    const CRunningApplication application(true);

    EXPECT_EQ(application.GetControlText(L"Colour_mode"), L"Fixed");
    EXPECT_EQ(application.GetControlText(L"Colour_1_factor"), L"25%");
    EXPECT_EQ(application.GetControlText(L"Colour_2_factor"), L"50%");
    EXPECT_EQ(application.GetControlText(L"Colour_3_factor"), L"25%");
    EXPECT_EQ(GetColour(application, L"Colour_1"), c_crRed);
    EXPECT_EQ(GetColour(application, L"Colour_2"), c_crRed);
    EXPECT_EQ(GetColour(application, L"Colour_3"), c_crGreen);
    EXPECT_TRUE(IsEnabled(application, L"Colour_2_factor"));
}

TEST_F(SettingsFile_InTheApplication, AColourModeOf256IsFixedMode)
{
    CRunningApplication::WriteSetting(L"Atoms_colour_mode", L"256");
    const CRunningApplication application(true);
    EXPECT_EQ(application.GetControlText(L"Colour_mode"), L"Fixed");
}

TEST_F(SettingsFile_InTheApplication, AFactorOfTwentyCharactersIsReadAsItsFirstFifteen)
{
    CRunningApplication::WriteSetting(L"Atom_colour_1_factor", L"0.123456789012345678");
    const CRunningApplication application(true);
    EXPECT_EQ(application.GetControlText(L"Colour_1_factor"), L"0.1234567890123");
}

TEST_F(SettingsFile_InTheApplication, ASecondFactorSavedEmptyInSpeedModeStaysEmptyInFixedMode)
{
    {
        const CRunningApplication application;
    }
    EXPECT_EQ(CRunningApplication::ReadSetting(L"Atom_colour_2_factor"), L"");
    CRunningApplication::WriteSetting(L"Atoms_colour_mode", L"0");
    const CRunningApplication application(true);
    EXPECT_EQ(application.GetControlText(L"Colour_2_factor"), L"");
    EXPECT_EQ(application.GetControlText(L"Colour_1_factor"), L"0.75");
}

TEST_F(SettingsFile_InTheApplication, ARadiusOf300IsTruncatedToAByte)
{
    CRunningApplication::WriteSetting(L"Atoms_min_radius", L"300");
    const CRunningApplication application(true);
    EXPECT_EQ(application.GetControlText(L"Min_radius"), L"44");
}

TEST_F(SettingsFile_InTheApplication, NumbersOutOfRangeReachThePanelUnchanged)
{
    CRunningApplication::WriteSetting(L"World_width", L"-5");
    CRunningApplication::WriteSetting(L"World_height", L"123456");
    CRunningApplication::WriteSetting(L"Tot_atoms", L"abc");
    const CRunningApplication application(true);
    EXPECT_EQ(application.GetControlText(L"Width"), L"-5");
    EXPECT_EQ(application.GetControlText(L"Height"), L"123456");
    EXPECT_EQ(application.GetControlText(L"Tot_atoms"), L"0");
}

TEST_F(SettingsFile_InTheApplication, ClosingWritesAllKeysInTheirOrder)
{
    {
        const CRunningApplication application;
        application.SetControlText(L"Width", L"321");
        application.SetControlText(L"Colour_1_factor", L" 0.5 ");
        application.Do([](CKinetarium& inside) { CKinetariumProbe::SetColour(inside, L"Colour_3", 0x123456); });
    }
    const std::string sText = ReadFile();
    std::size_t place = 0;
    for (const char* sKey :
         {"[Settings]", "World_width=321", "World_height=512", "World_background_colour=0", "Tot_atoms=256",
          "Atoms_min_radius=3", "Atoms_max_radius=5", "Atoms_colour_mode=1", "Atom_colour_1=255",
          "Atom_colour_1_factor=", "Atom_colour_2=8421504", "Atom_colour_2_factor=", "Atom_colour_3=1193046",
          "Atom_colour_3_factor=1.25", "WndLeft=", "WndTop=", "WndRight=", "WndBottom="})
    {
        place = sText.find(sKey, place);
        ASSERT_NE(place, std::string::npos) << sKey << " is missing or out of order in\n" << sText;
    }
}

TEST_F(SettingsFile_InTheApplication, ForeignKeysAndSectionsSurviveASave)
{
    WriteFile("; a note\r\n[Other]\r\nAnswer=42\r\n[Settings]\r\nMine=yes\r\nWorld_width=200\r\n");
    {
        const CRunningApplication application(true);
        EXPECT_EQ(application.GetControlText(L"Width"), L"200");
    }
    const std::string sText = ReadFile();
    EXPECT_NE(sText.find("Answer=42"), std::string::npos) << sText;
    EXPECT_NE(sText.find("Mine=yes"), std::string::npos) << sText;
    EXPECT_NE(sText.find("[Other]"), std::string::npos) << sText;
}

// A backup program or an editor can lock the file; a write-protected folder has the same effect.
TEST_F(SettingsFile_InTheApplication, AFileThatCannotBeWrittenIsReadAndNotChanged)
{
    WriteFile("[Settings]\r\nWorld_width=200\r\n");
    const HANDLE hLock = CreateFileW(CRunningApplication::GetSettingsPath().c_str(), GENERIC_READ, FILE_SHARE_READ,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hLock, INVALID_HANDLE_VALUE);
    {
        const CRunningApplication application(true);
        EXPECT_EQ(application.GetControlText(L"Width"), L"200");
        application.SetControlText(L"Tot_atoms", L"8");
        application.PressButton();
        EXPECT_TRUE(application.WaitForWorker(true));
    }
    EXPECT_EQ(ReadFile(), "[Settings]\r\nWorld_width=200\r\n");
    CloseHandle(hLock);
}

TEST_F(SettingsFile_InTheApplication, AFolderInTheFilesPlaceBreaksNothing)
{
    CreateDirectoryW(CRunningApplication::GetSettingsPath().c_str(), nullptr);
    const CRunningApplication application(true);
    EXPECT_EQ(application.GetControlText(L"Width"), L"512");
    application.SetControlText(L"Tot_atoms", L"8");
    application.PressButton();
    EXPECT_TRUE(application.WaitForWorker(true));
}

TEST_F(SettingsFile_InTheApplication, ALargeFileOfNoiseStartsTheProgramWithDefaults)
{
    // Ten thousand times as long as a settings file. The system reads the whole file again for every key.
    constexpr std::size_t size = std::size_t{4} * 1024 * 1024;
    std::mt19937 noise(1);
    std::string sNoise(size, '\0');
    for (char& c : sNoise)
    {
        c = static_cast<char>(noise());
    }
    WriteFile(sNoise);
    CRunningApplication application(true);
    EXPECT_EQ(application.GetControlText(L"Width"), L"512");
    EXPECT_TRUE(application.Close());
}

TEST_F(SettingsFile_InTheApplication, TheFirstOfRepeatedKeysAndSectionsCounts)
{
    WriteFile("[settings]\r\nworld_width=111\r\nWorld_width=222\r\n[Settings]\r\nWorld_width=333\r\n");
    const CRunningApplication application(true);
    EXPECT_EQ(application.GetControlText(L"Width"), L"111");
}

// The rectangle must fit the screen of every machine that runs the tests.
TEST_F(SettingsFile_InTheApplication, TheWindowOpensWhereItWasClosed)
{
    RECT rcClosed{};
    {
        const CRunningApplication application;
        SetWindowPos(application.GetMain(), nullptr, 20, 30, 640, 480, SWP_NOZORDER);
        GetWindowRect(application.GetMain(), &rcClosed);
    }
    EXPECT_EQ(CRunningApplication::ReadSetting(L"WndLeft"), std::to_wstring(rcClosed.left));
    EXPECT_EQ(CRunningApplication::ReadSetting(L"WndBottom"), std::to_wstring(rcClosed.bottom));

    const CRunningApplication application(true);
    RECT rcOpened{};
    GetWindowRect(application.GetMain(), &rcOpened);
    EXPECT_TRUE(EqualRect(&rcOpened, &rcClosed));
}

TEST_F(SettingsFile_InTheApplication, AMaximisedWindowStoresItsRestoredRectangle)
{
    RECT rcNormal{};
    {
        const CRunningApplication application;
        SetWindowPos(application.GetMain(), nullptr, 20, 30, 640, 480, SWP_NOZORDER);
        GetWindowRect(application.GetMain(), &rcNormal);
        // Not with the title bar's button, which means full screen here.
        ShowWindow(application.GetMain(), SW_SHOWMAXIMIZED);
    }
    EXPECT_EQ(CRunningApplication::ReadSetting(L"WndLeft"), std::to_wstring(rcNormal.left));
    EXPECT_EQ(CRunningApplication::ReadSetting(L"WndTop"), std::to_wstring(rcNormal.top));
    EXPECT_EQ(CRunningApplication::ReadSetting(L"WndRight"), std::to_wstring(rcNormal.right));
    EXPECT_EQ(CRunningApplication::ReadSetting(L"WndBottom"), std::to_wstring(rcNormal.bottom));
}
