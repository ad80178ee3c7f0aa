#include "classes/core/CExceptionHandler.h"
#include "classes/core/CrashFiles.h"
#include "classes/windows/crash/CrashStages.h"
#include "tests/classes/windows/crash/CCrashedProgram.h"
#include "tests/classes/windows/crash/ReadDump.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <regex>
#include <stdexcept>

namespace
{
constexpr DWORD c_dwAccessViolation = 0xC0000005;
constexpr DWORD c_dwDivision = 0xC0000094;
constexpr DWORD c_dwException = 3;
constexpr DWORD c_dwExceptionInDump = 0xE0000001;

bool Contains(const std::wstring& sText, const std::wstring& sPart)
{
    return sText.find(sPart) != std::wstring::npos;
}

// The message and the report of a program that has crashed on request.
struct CCrashResult
{
    CCrashResult(const CEmptyFolder& folder, const std::wstring& sHow)
    {
        const CCrashedProgram program(folder.GetPath(), sHow);
        message = program.CloseMessage();
        exitCode = program.WaitForExit();
        for (const std::string& sName : folder.List(".txt"))
        {
            report = folder.Read(sName);
        }
        for (const std::string& sName : folder.List(".dmp"))
        {
            dump = folder.Read(sName);
        }
    }

    bool Says(const std::string& sPattern) const { return std::regex_search(report, std::regex(sPattern)); }

    std::wstring message;
    DWORD exitCode = 0;
    std::string report;
    std::string dump;
};

class CrashReport : public testing::Test
{
protected:
    // Reads the dump of the crash and checks the contents that every dump has.
    static CDumpContents CheckDump(const CCrashResult& result)
    {
        CDumpContents dump = ReadDump(result.dump);
        EXPECT_TRUE(dump.threadIsListed);
        EXPECT_TRUE(std::any_of(dump.modules.begin(), dump.modules.end(), [](const std::wstring& sModule) {
            return Contains(sModule, L"kinetarium-crashing.exe");
        }));
        return dump;
    }

    CEmptyFolder m_folder;
};
} // namespace

TEST_F(CrashReport, OfAnAccessViolationNamesErrorAndPlaceAndComesWithADumpAndOneMessage)
{
    const CCrashResult result(m_folder, L"access");
    EXPECT_EQ(result.exitCode, c_dwAccessViolation);
    EXPECT_TRUE(result.Says("^Crashing 1\\.2\\.3 ended unexpectedly\\.\r\n")) << result.report;
    EXPECT_TRUE(result.Says("\nTime:      \\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d UTC\r\n")) << result.report;
    EXPECT_TRUE(result.Says("\nBuild:     some day, image checksum 0x[0-9a-f]{8}\r\n")) << result.report;
    EXPECT_TRUE(result.Says("\nError:     access violation \\(0xc0000005\\) writing to address 0x0\r\n"))
        << result.report;
    EXPECT_TRUE(result.Says("\nPlace:     kinetarium-crashing\\.exe\\+0x[0-9a-f]+\r\n")) << result.report;
    EXPECT_TRUE(result.Says("\nThread:    \\d+ \\(the main thread\\)\r\n")) << result.report;
    EXPECT_TRUE(result.Says("\nActivity:  ending as it was told\r\n")) << result.report;
    EXPECT_TRUE(result.Says("\nSystem:    Windows \\d+\\.\\d+\\.\\d+\r\n")) << result.report;
    EXPECT_TRUE(result.Says("\nProcessor: [1-9]\\d* processors?, (no )?AVX2, (no )?AVX-512\r\n")) << result.report;
    EXPECT_TRUE(result.Says("\nMemory:    \\d+ MB taken by the program, \\d+ MB of [1-9]\\d* MB free\r\n"))
        << result.report;

    // The calls lead from the fault to the program's start.
    std::smatch place;
    ASSERT_TRUE(std::regex_search(result.report, place, std::regex("Place:     (\\S+)\r\n"))) << result.report;
    EXPECT_NE(result.report.find("Calls, the innermost first:\r\n  " + place[1].str() + "\r\n"), std::string::npos)
        << result.report;
    EXPECT_TRUE(result.Says("\n  kernel32\\.dll\\+0x[0-9a-f]+\r\n")) << "the walk ends too early\n" << result.report;

    // The dump lies beside the report, and the message names the report.
    const std::vector<std::string> names = m_folder.List();
    ASSERT_EQ(names.size(), 2u);
    EXPECT_TRUE(std::regex_match(names[1], std::regex("Crashing-crash-\\d{8}-\\d{6}\\.txt"))) << names[1];
    EXPECT_EQ(names[0], names[1].substr(0, names[1].size() - 4) + ".dmp");
    EXPECT_NE(result.report.find("\nMinidump:  " + names[0] + "\r\n"), std::string::npos) << result.report;

    const CDumpContents dump = CheckDump(result);
    EXPECT_EQ(dump.exceptionCode, c_dwAccessViolation);
    EXPECT_TRUE(result.Says("\nThread:    " + std::to_string(dump.exceptionThread) + " ")) << result.report;

    EXPECT_TRUE(Contains(result.message, L"Crashing has to end because of an error"));
    EXPECT_TRUE(Contains(result.message, (m_folder.GetPath() / names[1]).wstring()));
    EXPECT_TRUE(Contains(result.message, L"Nothing was sent anywhere"));
}

TEST_F(CrashReport, OfASecondThreadNamesThatThread)
{
    const CCrashResult result(m_folder, L"access thread");
    EXPECT_EQ(result.exitCode, c_dwAccessViolation);
    EXPECT_TRUE(result.Says("\nThread:    \\d+ \\(not the main one\\)\r\n")) << result.report;
    EXPECT_GE(CheckDump(result).threads, 2u);
}

TEST_F(CrashReport, OfADivisionByZeroNamesIt)
{
    const CCrashResult result(m_folder, L"divide");
    EXPECT_EQ(result.exitCode, c_dwDivision);
    EXPECT_TRUE(result.Says("\nError:     integer division by zero \\(0xc0000094\\)\r\n")) << result.report;
}

TEST_F(CrashReport, OfAnUncaughtExceptionNamesItsTypeAndText)
{
    for (const wchar_t* sHow : {L"throw thread", L"noexcept"})
    {
        const CEmptyFolder folder;
        const CCrashResult result(folder, sHow);
        EXPECT_EQ(result.exitCode, c_dwException);
        EXPECT_TRUE(result.Says("\nError:     exception that nothing caught: std::runtime_error "
                                "\"nobody catches this\"\r\n"))
            << result.report;
        EXPECT_EQ(CheckDump(result).exceptionCode, c_dwExceptionInDump);
        EXPECT_EQ(folder.List().size(), 2u);
    }
}

TEST_F(CrashReport, OfACallOfTerminateReportsThatThereIsNoException)
{
    const CCrashResult result(m_folder, L"terminate");
    EXPECT_EQ(result.exitCode, c_dwException);
    EXPECT_TRUE(result.Says("\nError:     exception that nothing caught: no exception\r\n")) << result.report;
}

TEST_F(CrashReport, TwoCrashesAtOnceGiveOneReportAndOneMessage)
{
    const CCrashedProgram program(m_folder.GetPath(), L"twice");
    EXPECT_FALSE(program.CloseMessage().empty());
    EXPECT_EQ(program.WaitForExit(), c_dwAccessViolation);
    EXPECT_EQ(program.CloseMessage(), L"");
    EXPECT_EQ(m_folder.List().size(), 2u);
}

TEST_F(CrashReport, SixCrashesLeaveFivePairsAndForeignFilesStay)
{
    const auto writePair = [&](const std::string& sStem) {
        m_folder.Write(sStem + ".txt", "an old report");
        m_folder.Write(sStem + ".dmp", "an old dump");
    };
    for (const char* sDay : {"01", "02", "03", "04", "05"})
    {
        writePair(std::string("Crashing-crash-200101") + sDay + "-000000");
    }
    m_folder.Write("Crashing.ini", "settings");
    m_folder.Write("Crashing-crash-notes.txt", "mine");
    std::filesystem::create_directory(m_folder.GetPath() / "Crashing-crash-20000101-000000.txt");

    const CCrashResult sixth(m_folder, L"access");
    EXPECT_EQ(m_folder.List(".dmp").size(), 5u);
    EXPECT_EQ(m_folder.List(".txt").size(), 5u + 2u);
    EXPECT_EQ(m_folder.Read("Crashing-crash-20010101-000000.txt"), "");
    EXPECT_EQ(m_folder.Read("Crashing-crash-20010102-000000.txt"), "an old report");
    EXPECT_EQ(m_folder.Read("Crashing-crash-notes.txt"), "mine");
    EXPECT_EQ(m_folder.Read("Crashing.ini"), "settings");
}

TEST_F(CrashReport, IfTheFolderIsMissingTheMessageReportsItAndTheProgramEnds)
{
    // A missing folder, a missing drive, and (under Wine) a folder that cannot be written.
    for (const std::filesystem::path& nowhere :
         {m_folder.GetPath() / "missing", std::filesystem::path("Q:\\vanished"), std::filesystem::path("Z:\\proc")})
    {
        const CCrashedProgram program(nowhere, L"access");
        const std::wstring sMessage = program.CloseMessage();
        EXPECT_TRUE(Contains(sMessage, L"No report could be written to\n" + nowhere.wstring()))
            << testing::PrintToString(sMessage);
        EXPECT_EQ(program.WaitForExit(), c_dwAccessViolation);
    }
    EXPECT_TRUE(m_folder.List().empty());
}

// The crashing thread holds the heap's lock. A report is impossible, but the program must end.
TEST_F(CrashReport, IfTheHeapStaysLockedTheProgramStillEnds)
{
    const CCrashedProgram program(m_folder.GetPath(), L"locked thread");
    program.CloseMessage();
    EXPECT_EQ(program.WaitForExit(), c_dwAccessViolation);
}

TEST_F(CrashReport, IsNotWrittenWithoutACrash)
{
    const CCrashedProgram program(m_folder.GetPath(), L"nothing");
    EXPECT_EQ(program.CloseMessage(), L"");
    EXPECT_EQ(program.WaitForExit(), 91u);
    EXPECT_TRUE(m_folder.List().empty());
}

TEST(CrashStages, AStepThatFaultsOrThrowsFailsAndAStepThatHangsTimesOut)
{
    const CExceptionHandler handler(nullptr, false);
    CExceptionHandler::SetReporter([](const CUnhandledError&) {
        EndFaultedCrashStage();
        TerminateProcess(GetCurrentProcess(), 1); // the fault was not attributed to a step
    });
    EXPECT_EQ(RunCrashStage([] {}, 10000), EnumStageEnd::Done);
    EXPECT_EQ(RunCrashStage([] { throw std::bad_alloc(); }, 10000), EnumStageEnd::Failed);
    const auto fault = [] { *static_cast<volatile int*>(nullptr) = 1; }; // NOLINT(clang-analyzer-core.NullDereference)
    EXPECT_EQ(RunCrashStage(fault, 10000), EnumStageEnd::Failed);
    EXPECT_EQ(RunCrashStage([] { Sleep(INFINITE); }, 50), EnumStageEnd::TimedOut);
    EXPECT_EQ(RunCrashStage_Window([] { Sleep(INFINITE); }, 100), EnumStageEnd::TimedOut);
    EXPECT_EQ(RunCrashStage_Window([] {}, 10000), EnumStageEnd::Done);
    CExceptionHandler::SetReporter(nullptr);
}
