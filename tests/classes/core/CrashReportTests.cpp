#include "classes/core/CFixedText.h"
#include "classes/core/CrashFiles.h"
#include "classes/core/CrashNote.h"
#include "classes/core/CrashText.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace
{
constexpr CCrashTime c_Time{2026, 11, 21, 10, 5, 9};
const std::wstring c_sProgram = L"Kinetarium";

std::string MakeStem(unsigned uAttempt)
{
    char storage[64];
    CFixedText text(storage, sizeof storage);
    AddCrashStem(text, "Kinetarium", c_Time, uAttempt);
    return text.Get();
}

std::string DescribeFault(const CFault& fault)
{
    char storage[128];
    CFixedText text(storage, sizeof storage);
    AddFault(text, fault);
    return text.Get();
}

std::string MakeReport(const CCrashFacts& facts)
{
    char storage[2048];
    CFixedText text(storage, sizeof storage);
    AddCrashReport(text, facts);
    return text.Get();
}
} // namespace

TEST(FixedText, TextsAndNumbersFollowEachOther)
{
    char storage[64];
    CFixedText text(storage, sizeof storage);
    text.Add("a").AddNumber(0).Add(nullptr).AddNumber(7, 3).AddHex(255).Add(" ").AddHex(0x5, 8);
    EXPECT_STREQ(text.Get(), "a0007"
                             "0xff 0x00000005");
    EXPECT_EQ(text.GetLength(), std::strlen(text.Get()));
}

TEST(FixedText, TheLargestNumbersAreNotTruncated)
{
    char storage[64];
    CFixedText text(storage, sizeof storage);
    text.AddNumber(~std::uint64_t{0}).Add(" ").AddHex(~std::uint64_t{0});
    EXPECT_STREQ(text.Get(), "18446744073709551615 0xffffffffffffffff");
}

TEST(FixedText, AnOverlongTextIsTruncatedAndNothingFollowsIt)
{
    char storage[8];
    std::memset(storage, '#', sizeof storage);
    CFixedText text(storage, sizeof storage - 1);
    text.Add("1234").Add("5678").Add("9");
    EXPECT_STREQ(text.Get(), "123456");
    EXPECT_EQ(storage[7], '#') << "written beyond the storage";
    text.Clear();
    EXPECT_STREQ(text.Add("x").Get(), "x");
}

TEST(FixedText, TruncationNeverSplitsACharacter)
{
    char storage[8];
    CFixedText text(storage, sizeof storage);
    text.Add("12345").Add("\xE2\x82\xAC"); // the euro sign has three bytes; two are free
    EXPECT_STREQ(text.Get(), "12345");
}

TEST(CrashFiles, ANameCarriesProgramDateAndTime)
{
    EXPECT_EQ(MakeStem(1), "Kinetarium-crash-20261121-100509");
    EXPECT_EQ(MakeStem(2), "Kinetarium-crash-20261121-100509-2");
}

TEST(CrashFiles, OnlyNamesOfCrashFilesAreRecognised)
{
    EXPECT_EQ(GetCrashStem(L"Kinetarium-crash-20261121-100509.txt", c_sProgram), L"Kinetarium-crash-20261121-100509");
    EXPECT_EQ(GetCrashStem(L"Kinetarium-crash-20261121-100509.dmp", c_sProgram), L"Kinetarium-crash-20261121-100509");
    EXPECT_EQ(GetCrashStem(L"Kinetarium-crash-20261121-100509-9.txt", c_sProgram),
              L"Kinetarium-crash-20261121-100509-9");
    for (const wchar_t* sForeign :
         {L"", L".txt", L"Kinetarium.ini", L"Kinetarium-crash-.txt", L"Kinetarium-crash-20261121-10050.txt",
          L"Kinetarium-crash-20261121-1005090.txt", L"Kinetarium-crash-20261121_100509.txt",
          L"Kinetarium-crash-2026112a-100509.txt", L"Kinetarium-crash-20261121-100509.txt.bak",
          L"Kinetarium-crash-20261121-100509 (1).txt", L"Kinetarium-crash-20261121-100509.zip",
          L"Kinetarium-crash-20261121-100509-1.txt", L"Kinetarium-crash-20261121-100509-22.txt",
          L"Kinetarium-crash-20261121-100509-.txt", L"kinetarium-crash-20261121-100509.txt",
          L"My Kinetarium-crash-20261121-100509.txt", L"Other-crash-20261121-100509.txt"})
    {
        EXPECT_EQ(GetCrashStem(sForeign, c_sProgram), L"") << testing::PrintToString(std::wstring(sForeign));
    }
}

TEST(CrashFiles, EveryGeneratedNameIsRecognised)
{
    for (unsigned uAttempt = 1; uAttempt <= c_uCrashStemAttempts; ++uAttempt)
    {
        const std::string sStem = MakeStem(uAttempt);
        const std::wstring sWide(sStem.begin(), sStem.end());
        EXPECT_EQ(GetCrashStem(sWide + L".txt", c_sProgram), sWide) << sStem;
    }
}

class CrashFilesToDelete : public testing::Test
{
protected:
    // Adds the report and the dump of a crash in the given minute.
    void AddPair(int iMinute)
    {
        m_names.push_back(Name(iMinute) + L".dmp");
        m_names.insert(m_names.begin(), Name(iMinute) + L".txt");
    }

    static std::wstring Name(int iMinute)
    {
        return L"Kinetarium-crash-20261121-10" + std::to_wstring(10 + iMinute) + L"00";
    }

    std::vector<std::wstring> Choose(int iCurrent) const
    {
        std::vector<std::wstring> chosen = ChooseCrashFilesToDelete(m_names, c_sProgram, Name(iCurrent));
        std::sort(chosen.begin(), chosen.end());
        return chosen;
    }

    std::vector<std::wstring> m_names;
};

TEST_F(CrashFilesToDelete, AreNoneUpToFiveCrashes)
{
    for (int iMinute = 1; iMinute <= 5; ++iMinute)
    {
        AddPair(iMinute);
    }
    EXPECT_TRUE(Choose(5).empty());
}

TEST_F(CrashFilesToDelete, AreBothFilesOfTheOldestOfSix)
{
    for (int iMinute = 6; iMinute >= 1; --iMinute)
    {
        AddPair(iMinute);
    }
    EXPECT_EQ(Choose(6), (std::vector<std::wstring>{Name(1) + L".dmp", Name(1) + L".txt"}));
}

TEST_F(CrashFilesToDelete, AreAllButTheFiveYoungestOfMany)
{
    for (int iMinute = 1; iMinute <= 9; ++iMinute)
    {
        AddPair(iMinute);
    }
    EXPECT_EQ(Choose(9).size(), 8u);
    EXPECT_EQ(Choose(9).back(), Name(4) + L".txt");
}

TEST_F(CrashFilesToDelete, ADumpOrAReportAloneCountsAsACrash)
{
    for (int iMinute = 1; iMinute <= 6; ++iMinute)
    {
        m_names.push_back(Name(iMinute) + (iMinute % 2 == 0 ? L".txt" : L".dmp"));
    }
    EXPECT_EQ(Choose(6), (std::vector<std::wstring>{Name(1) + L".dmp"}));
}

TEST_F(CrashFilesToDelete, ForeignFilesAreNeitherCountedNorChosen)
{
    for (int iMinute = 1; iMinute <= 5; ++iMinute)
    {
        AddPair(iMinute);
    }
    for (const wchar_t* sForeign : {L"Kinetarium.exe", L"Kinetarium.ini", L"Kinetarium-crash-notes.txt",
                                    L"Kinetarium-crash-20200101-000000.zip", L"Other-crash-20200101-000000.txt"})
    {
        m_names.emplace_back(sForeign);
    }
    EXPECT_TRUE(Choose(5).empty());
}

TEST_F(CrashFilesToDelete, NeverIncludeTheCurrentCrashEvenIfTheClockWasSetBack)
{
    for (int iMinute = 1; iMinute <= 6; ++iMinute)
    {
        AddPair(iMinute);
    }
    EXPECT_EQ(Choose(1), (std::vector<std::wstring>{Name(2) + L".dmp", Name(2) + L".txt"}));
}

TEST(CrashText, AFaultIsNamedWithItsCodeAndTheAttemptedOperation)
{
    EXPECT_EQ(DescribeFault({0xC0000005, 2, {0, 0x10}}), "access violation (0xc0000005) reading from address 0x10");
    EXPECT_EQ(DescribeFault({0xC0000005, 2, {1, 0x20}}), "access violation (0xc0000005) writing to address 0x20");
    EXPECT_EQ(DescribeFault({0xC0000005, 2, {8, 0}}), "access violation (0xc0000005) executing address 0x0");
    EXPECT_EQ(DescribeFault({0xC0000005, 0, {}}), "access violation (0xc0000005)");
    EXPECT_EQ(DescribeFault({0xC0000094, 0, {}}), "integer division by zero (0xc0000094)");
    EXPECT_EQ(DescribeFault({0xC00000FD, 2, {1, 0x30}}), "stack overflow (0xc00000fd)");
    EXPECT_EQ(DescribeFault({0xE0001234, 1, {5}}), "fault (0xe0001234)");
}

TEST(CrashText, APlaceIsItsModuleAndOffsetOrAnAddressWithoutAModule)
{
    char storage[64];
    CFixedText text(storage, sizeof storage);
    AddCrashPlace(text, {"Kinetarium.exe", 0x1234, 0x140001234});
    text.Add(" ");
    AddCrashPlace(text, {"", 0, 0x10});
    EXPECT_STREQ(text.Get(), "Kinetarium.exe+0x1234 0x10");
}

TEST(CrashText, AReportHoldsEveryFactOnALineOfItsOwn)
{
    CCrashFacts facts;
    facts.program = "Kinetarium";
    facts.version = "2.0.0";
    facts.build = "Sat Nov 21 09:00:00 2026";
    facts.time = c_Time;
    facts.error = "it broke";
    facts.place = {"Kinetarium.exe", 0x1234, 0};
    facts.thread = 42;
    facts.mainThread = true;
    facts.activity = "nothing";
    facts.system = "Windows 10.0.19045";
    facts.processor = "4 processors";
    facts.memoryTotal = std::uint64_t{8} << 30;
    facts.memoryFree = std::uint64_t{3} << 30;
    facts.memoryOwn = std::uint64_t{50} << 20;
    EXPECT_EQ(MakeReport(facts), "Kinetarium 2.0.0 ended unexpectedly.\r\n"
                                 "\r\n"
                                 "Time:      2026-11-21 10:05:09 UTC\r\n"
                                 "Build:     Sat Nov 21 09:00:00 2026\r\n"
                                 "Error:     it broke\r\n"
                                 "Place:     Kinetarium.exe+0x1234\r\n"
                                 "Thread:    42 (the main thread)\r\n"
                                 "Activity:  nothing\r\n"
                                 "System:    Windows 10.0.19045\r\n"
                                 "Processor: 4 processors\r\n"
                                 "Memory:    50 MB taken by the program, 3072 MB of 8192 MB free\r\n");
}

TEST(CrashText, MissingFactsAreOmitted)
{
    const std::string sReport = MakeReport({});
    EXPECT_EQ(sReport.find("Error:"), std::string::npos) << sReport;
    EXPECT_NE(sReport.find("(not the main one)"), std::string::npos) << sReport;
}

TEST(CrashNote, ReadingGivesTheLastNote)
{
    SetCrashNote("first");
    EXPECT_STREQ(GetCrashNote(), "first");
    SetCrashNote("second");
    EXPECT_STREQ(GetCrashNote(), "second");
    SetCrashNote(std::string(1000, 'x').c_str());
    EXPECT_EQ(std::strlen(GetCrashNote()), 255u);
    SetCrashNote("");
    EXPECT_STREQ(GetCrashNote(), "");
}
