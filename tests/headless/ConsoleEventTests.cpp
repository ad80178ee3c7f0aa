#include "headless/files/SystemFile.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>
#include <windows.h>

namespace
{

using CArguments = std::vector<std::string>;
using CNames = std::vector<std::string>;

BOOL WINAPI IgnoreEvent(DWORD)
{
    return TRUE;
}

// The finished program and this test alone on a console of their own: an event goes to all programs of a console.
class CConsoleProcess
{
public:
    // out is its standard output; null: that of the console.
    CConsoleProcess(const CArguments& arguments, HANDLE out)
    {
        FreeConsole();
        AllocConsole();
        SetConsoleCtrlHandler(&IgnoreEvent, TRUE);
        std::wstring sCommand = std::filesystem::path(KINETARIUM_HEADLESS).wstring();
        for (const std::string& sArgument : arguments)
        {
            sCommand += L" \"" + PathFromUtf8(sArgument).wstring() + L"\"";
        }
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = out != nullptr ? STARTF_USESTDHANDLES : 0;
        startup.hStdOutput = out;
        m_bStarted = CreateProcessW(nullptr, sCommand.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                                    &m_Process) != FALSE;
    }

    CConsoleProcess(const CConsoleProcess&) = delete;
    CConsoleProcess& operator=(const CConsoleProcess&) = delete;

    ~CConsoleProcess()
    {
        SetConsoleCtrlHandler(&IgnoreEvent, FALSE);
        TerminateProcess(m_Process.hProcess, 1);
        CloseHandle(m_Process.hProcess);
        CloseHandle(m_Process.hThread);
    }

    bool IsStarted() const { return m_bStarted; }

    static bool PressControlC() { return GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0) != FALSE; }

    DWORD WaitForEnd() const
    {
        DWORD uExitCode = 0;
        WaitForSingleObject(m_Process.hProcess, INFINITE);
        GetExitCodeProcess(m_Process.hProcess, &uExitCode);
        return uExitCode;
    }

private:
    PROCESS_INFORMATION m_Process{};
    bool m_bStarted = false;
};

void WaitForFile(const std::string& sPath)
{
    while (!std::filesystem::exists(PathFromUtf8(sPath)))
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

} // namespace

TEST(ConsoleEvent, EndsARunThatLeavesACheckpointAndItsStatistics)
{
    const CTemporaryFolder folder;
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    const CConsoleProcess process({"--seed", "42", "--iterations", "1000000000000", "--stats",
                                   folder.GetPath("stats.csv"), "--checkpoint", sCheckpoint},
                                  nullptr);
    ASSERT_TRUE(process.IsStarted());
    // From now on the program iterates.
    WaitForFile(folder.GetPath("stats.csv.partial"));
    ASSERT_TRUE(CConsoleProcess::PressControlC());

    EXPECT_EQ(process.WaitForEnd(), STATUS_CONTROL_C_EXIT);
    EXPECT_EQ(folder.GetNames(), (CNames{"run.ckpt", "stats.csv.partial"}));
    const CProgramResult shown = RunProgram({"--resume", sCheckpoint, "--iterations", "0"});
    EXPECT_EQ(shown.exitCode, 0) << shown.err;
    EXPECT_EQ(GetSummaryValue(shown.out, "seed"), "42");
}

// The program waits in a call that no event ends.
TEST(ConsoleEvent, EndsARunThatWritesToAPipeThatNobodyReads)
{
    const CTemporaryFolder folder;
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    ASSERT_TRUE(CreatePipe(&readEnd, &writeEnd, &inherited, 1) != FALSE);
    const CConsoleProcess process(
        {"--atoms", "5", "--iterations", "1000000000000", "--stats", "-", "--picture", folder.GetPath("gas.png")},
        writeEnd);
    ASSERT_TRUE(process.IsStarted());
    DWORD uBytes = 0;
    while (uBytes == 0)
    {
        ASSERT_TRUE(PeekNamedPipe(readEnd, nullptr, 0, nullptr, &uBytes, nullptr) != FALSE);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ASSERT_TRUE(CConsoleProcess::PressControlC());

    EXPECT_EQ(process.WaitForEnd(), STATUS_CONTROL_C_EXIT);
    EXPECT_EQ(folder.GetNames(), CNames{});
    CloseHandle(readEnd);
    CloseHandle(writeEnd);
}
