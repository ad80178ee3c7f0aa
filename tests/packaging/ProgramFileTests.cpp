#include "tests/packaging/CProgramFile.h"
#include "tests/packaging/HandedOut.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <string>

namespace
{
// A program as linked, or as packaged.
struct CCase
{
    const char* name;
    std::filesystem::path (*folder)();
    const wchar_t* file;
};

void PrintTo(const CCase& programCase, std::ostream* pStream)
{
    *pStream << programCase.name;
}

constexpr std::array c_built = {
    CCase{"TheBuiltProgram", BuiltPrograms, L"Kinetarium.exe"},
    CCase{"TheBuiltHeadlessProgram", BuiltPrograms, L"kinetarium-headless.exe"},
};
constexpr std::array c_handedOut = {
    CCase{"TheHandedOutProgram", HandedOutFolder, L"Kinetarium.exe"},
    CCase{"TheHandedOutHeadlessProgram", HandedOutFolder, L"kinetarium-headless.exe"},
};

class ProgramFile : public testing::TestWithParam<CCase>
{
protected:
    const CProgramFile m_file{GetParam().folder() / GetParam().file};
};

class HandedOutFile : public ProgramFile
{
};

std::string NameOf(const testing::TestParamInfo<CCase>& row)
{
    return row.param.name;
}

std::string Utf16(const std::string& sAscii)
{
    std::string sResult;
    for (const char c : sAscii)
    {
        sResult += c;
        sResult += '\0';
    }
    return sResult;
}
} // namespace

INSTANTIATE_TEST_SUITE_P(Built, ProgramFile, testing::ValuesIn(c_built), NameOf);
INSTANTIATE_TEST_SUITE_P(HandedOut, ProgramFile, testing::ValuesIn(c_handedOut), NameOf);
INSTANTIATE_TEST_SUITE_P(HandedOut, HandedOutFile, testing::ValuesIn(c_handedOut), NameOf);

TEST_P(ProgramFile, IsA64BitProgram)
{
    EXPECT_EQ(m_file.GetMachine(), IMAGE_FILE_MACHINE_AMD64);
    EXPECT_NE(m_file.GetCharacteristics() & IMAGE_FILE_EXECUTABLE_IMAGE, 0);
    EXPECT_NE(m_file.GetCharacteristics() & IMAGE_FILE_LARGE_ADDRESS_AWARE, 0);
}

// The system chooses a random address at each start, from the whole address space. For that the program needs the flags
// and a table of relocations.
TEST_P(ProgramFile, CanBeLoadedAnywhere)
{
    constexpr std::uint64_t c_uFirst4GB = 0x1'0000'0000;
    EXPECT_NE(m_file.GetLoaderCharacteristics() & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE, 0);
    EXPECT_NE(m_file.GetLoaderCharacteristics() & IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA, 0);
    EXPECT_EQ(m_file.GetCharacteristics() & IMAGE_FILE_RELOCS_STRIPPED, 0);
    EXPECT_GE(m_file.GetPreferredAddress(), c_uFirst4GB);
    EXPECT_GT(m_file.CountRelocations(), 0U);
}

TEST_P(ProgramFile, HasNoMemoryThatCanBeWrittenAndExecuted)
{
    EXPECT_NE(m_file.GetLoaderCharacteristics() & IMAGE_DLLCHARACTERISTICS_NX_COMPAT, 0);
    int iExecutable = 0;
    for (const CProgramSection& section : m_file.GetSections())
    {
        const bool bExecutable = (section.flags & IMAGE_SCN_MEM_EXECUTE) != 0;
        const bool bWritable = (section.flags & IMAGE_SCN_MEM_WRITE) != 0;
        EXPECT_FALSE(bExecutable && bWritable) << section.name;
        iExecutable += bExecutable ? 1 : 0;
    }
    EXPECT_EQ(iExecutable, 1);
}

// A user's machine does not have the compiler's libraries.
TEST_P(ProgramFile, NeedsNoLibraryButTheSystems)
{
    std::array<wchar_t, MAX_PATH> folder{};
    ASSERT_GT(GetSystemDirectoryW(folder.data(), MAX_PATH), 0U);
    const auto libraries = m_file.GetImportedLibraries();
    EXPECT_NE(std::find(libraries.begin(), libraries.end(), "kernel32.dll"), libraries.end());
    for (const std::string& sLibrary : libraries)
    {
        EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(folder.data()) / sLibrary)) << sLibrary;
    }
}

TEST_P(ProgramFile, HoldsTheCheckOfTheStack)
{
    EXPECT_TRUE(m_file.Contains("*** stack smashing detected ***"));
}

// Two builds of the same sources must give the same file, also in different folders.
TEST_P(ProgramFile, DoesNotSayWhenItWasLinked)
{
    EXPECT_EQ(m_file.GetTimeStamp(), 0U);
}

// A build for a debugger names its folder, but no such build is packaged.
TEST_P(HandedOutFile, DoesNotSayWhereItWasBuilt)
{
    EXPECT_FALSE(m_file.Contains(KINETARIUM_SOURCE_FOLDER));
    EXPECT_FALSE(m_file.Contains(Utf16(KINETARIUM_SOURCE_FOLDER)));
    EXPECT_TRUE(m_file.Contains("classes/") || m_file.Contains("simulation/") || m_file.Contains("headless/"));
}
