#include "tests/classes/windows/crash/CloseSystemMessage.h"
#include "tests/classes/windows/crash/ReadDump.h"
#include "tests/endtoend/CEndToEndTest.h"

#include <chrono>
#include <fstream>
#include <sstream>
#include <stdexcept>

// Crashes the finished program from outside: starts a thread in it at an address without code.

namespace
{
constexpr std::uintptr_t c_uNoCode = 0x10;
constexpr DWORD c_dwAccessViolation = 0xC0000005;
constexpr auto c_Patience = std::chrono::milliseconds(30000);

void StartThreadWithoutCode(const CDrivenProgram& program)
{
    const auto pStart = reinterpret_cast<LPTHREAD_START_ROUTINE>(c_uNoCode);
    const HANDLE hThread = CreateRemoteThread(program.GetHandle(), nullptr, 0, pStart, nullptr, 0, nullptr);
    if (hThread == nullptr)
    {
        throw std::runtime_error("no thread can be started in the program");
    }
    CloseHandle(hThread);
}

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The only file in the folder with that extension.
std::filesystem::path FindFile(const std::filesystem::path& folder, const std::string& sEnding)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder))
    {
        if (entry.path().extension() == sEnding)
        {
            return entry.path();
        }
    }
    throw std::runtime_error("no file ends with " + sEnding);
}

int ReadSetting(const std::filesystem::path& file, const wchar_t* sKey)
{
    return static_cast<int>(GetPrivateProfileIntW(L"Settings", sKey, -1, file.c_str()));
}
} // namespace

TEST(CrashOfTheProgram, LeavesAReportBesideTheSettingsFileAndLosesNoSettings)
{
    const CProgramCopy copy(BuiltProgram());
    const std::filesystem::path folder = copy.GetPath().parent_path();
    const std::filesystem::path settings = folder / "Kinetarium.ini";
    WritePrivateProfileStringW(L"Settings", L"Tot_atoms", L"77", settings.c_str());
    WritePrivateProfileStringW(L"Settings", L"World_width", L"300", settings.c_str());
    {
        const CDrivenProgram program(copy.GetPath());
        const CKinetariumUser user(program);
        user.PressStart();
        user.WaitForStatistics(0);
        StartThreadWithoutCode(program);
        const std::wstring sMessage = CloseSystemMessage(program.GetHandle());
        EXPECT_NE(sMessage.find(FindFile(folder, ".txt").wstring()), std::wstring::npos)
            << testing::PrintToString(sMessage);
        EXPECT_EQ(program.WaitForExit(c_Patience), c_dwAccessViolation);
    }
    const std::string sReport = ReadFile(FindFile(folder, ".txt"));
    for (const char* sLine :
         {"Kinetarium 2.0.0 ended unexpectedly.\r\n", "\nError:     access violation (0xc0000005)",
          "\nPlace:     0x10\r\n", "(not the main one)\r\n",
          "\nActivity:  simulation of 77 atoms of radius 3 to 5 in a world of 300 x 512, speed mode\r\n"})
    {
        EXPECT_NE(sReport.find(sLine), std::string::npos) << sLine << "\nis missing in\n" << sReport;
    }
    // At least the window's thread, the worker and the one without code.
    EXPECT_GE(ReadDump(ReadFile(FindFile(folder, ".dmp"))).threads, 3u);

    EXPECT_EQ(ReadSetting(settings, L"Tot_atoms"), 77);
    EXPECT_EQ(ReadSetting(settings, L"World_width"), 300);
    const CDrivenProgram again(copy.GetPath());
    const CKinetariumUser user(again);
    user.Close();
    EXPECT_EQ(again.WaitForExit(c_Patience), 0u);
    EXPECT_EQ(ReadSetting(settings, L"Tot_atoms"), 77);
}
