#include "tests/classes/core/CEnvironmentChange.h"
#include "tests/endtoend/CEndToEndTest.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

// Tests the profile that the finished program writes on request.

namespace
{
struct CReadRow
{
    std::uint64_t calls = 0;
    double total = 0;
    double mean = 0;
    double longest = 0;
    std::string scope;
};

class ProfileOfTheProgram : public testing::Test
{
protected:
    ProfileOfTheProgram() : m_copy(BuiltProgram()), m_folder(m_copy.GetPath().parent_path()) {}

    // Starts the program with the variable, runs a simulation, stops it and closes the window.
    void RunProgram(const char* sVariable) const
    {
        constexpr auto c_patience = std::chrono::milliseconds(30000);
        const CEnvironmentChange change("KINETARIUM_PROFILE", sVariable);
        const CDrivenProgram program(m_copy.GetPath());
        const CKinetariumUser user(program);
        user.PressStart();
        user.WaitForStatistics(0);
        user.PressStop();
        user.Close();
        EXPECT_EQ(program.WaitForExit(c_patience), 0U);
    }

    std::vector<CReadRow> ReadRows() const
    {
        std::ifstream file(m_folder / "Kinetarium-profile.txt");
        std::string sLine;
        std::getline(file, sLine); // the heading
        std::vector<CReadRow> rows;
        while (std::getline(file, sLine))
        {
            std::istringstream line(sLine);
            CReadRow row;
            line >> row.calls >> row.total >> row.mean >> row.longest >> std::ws;
            std::getline(line, row.scope);
            rows.push_back(row);
        }
        return rows;
    }

    std::vector<std::string> ListFolder() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder))
        {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    CProgramCopy m_copy;
    std::filesystem::path m_folder;
};
} // namespace

TEST_F(ProfileOfTheProgram, IsWrittenAtTheEndWithEveryScopeAndTheLargestTotalFirst)
{
    RunProgram("1");
    const std::vector<CReadRow> rows = ReadRows();
    std::vector<std::string> scopes;
    for (const CReadRow& row : rows)
    {
        scopes.push_back(row.scope);
        EXPECT_GE(row.calls, 1U) << row.scope;
        EXPECT_GE(row.longest, row.mean) << row.scope;
        EXPECT_LE(row.longest, row.total) << row.scope;
    }
    // The outermost scope closes last: the program has ended before the table is written.
    ASSERT_FALSE(rows.empty());
    EXPECT_THAT(rows.front().scope, testing::HasSubstr("CKinetarium::CKinetarium("));
    EXPECT_THAT(scopes, testing::Contains(testing::HasSubstr("RunLoop(")));
    EXPECT_THAT(scopes, testing::Contains(testing::HasSubstr("CKinetarium::StartSimulation(")));
    EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end(), [](const CReadRow& first, const CReadRow& second) {
        return first.total > second.total;
    }));
    EXPECT_THAT(ListFolder(),
                testing::UnorderedElementsAre("Kinetarium.exe", "Kinetarium.ini", "Kinetarium-profile.txt"));
}

TEST_F(ProfileOfTheProgram, IsNotWrittenUnlessTheVariableIs1)
{
    for (const char* sVariable : {static_cast<const char*>(nullptr), "0"})
    {
        RunProgram(sVariable);
        EXPECT_THAT(ListFolder(), testing::UnorderedElementsAre("Kinetarium.exe", "Kinetarium.ini"));
    }
}

TEST_F(ProfileOfTheProgram, ThatCannotBeWrittenLosesNothingElse)
{
    std::filesystem::create_directory(m_folder / "Kinetarium-profile.txt");
    RunProgram("1");
    EXPECT_THAT(ListFolder(),
                testing::UnorderedElementsAre("Kinetarium.exe", "Kinetarium.ini", "Kinetarium-profile.txt"));
    EXPECT_TRUE(std::filesystem::is_empty(m_folder / "Kinetarium-profile.txt"));
}
