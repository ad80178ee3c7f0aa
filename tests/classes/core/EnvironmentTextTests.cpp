#include "classes/core/EnvironmentText.h"

#include "tests/classes/core/CEnvironmentChange.h"

#include <gtest/gtest.h>

namespace
{

constexpr const char* c_sName = "KINETARIUM_TEST_VARIABLE";

TEST(EnvironmentText, AnUnsetVariableGivesNullopt)
{
    const CEnvironmentChange change(c_sName, nullptr);
    EXPECT_FALSE(GetEnvironmentText(c_sName).has_value());
}

TEST(EnvironmentText, AValueComesBackAsWideText)
{
    const CEnvironmentChange change(c_sName, "gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80");
    EXPECT_EQ(GetEnvironmentText(c_sName), L"gr\u00FC\u00DF \U0001F600");
}

TEST(EnvironmentText, AValueOfTenThousandCharactersComesBackWhole)
{
    const std::string sLong(10'000, 'x');
    const CEnvironmentChange change(c_sName, sLong.c_str());
    EXPECT_EQ(GetEnvironmentText(c_sName), std::wstring(10'000, L'x'));
}

} // namespace
