#include "tests/rooms/HousePicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

namespace
{

using testing::HasSubstr;
using testing::Not;

const std::vector<CRoom> c_Rooms{{3, "check", EnumRoomKind::Tests, "tests"},
                                 {2, "app", EnumRoomKind::Both, "the <program> & more"},
                                 {1, "core", EnumRoomKind::Portable, "numbers"},
                                 {1, "plain", EnumRoomKind::Tests, "plain form"}};

std::ptrdiff_t Count(const std::string& sText, const std::string& sPattern)
{
    const std::regex pattern(sPattern);
    return std::distance(std::sregex_iterator(sText.begin(), sText.end(), pattern), std::sregex_iterator());
}

// The vertical coordinate of a room's name.
int GetRow(const std::string& sPicture, const std::string& sFolder)
{
    std::smatch match;
    return std::regex_search(sPicture, match, std::regex("y=\"(\\d+)\" class=\"room\">" + sFolder))
               ? std::stoi(match[1])
               : -1;
}

constexpr const char* c_sRed = "#d1242f";

} // namespace

TEST(HousePicture, HigherFloorsAreHigherUp)
{
    const std::string sPicture = DrawHouse(c_Rooms, {});

    EXPECT_GT(GetRow(sPicture, "app"), 0);
    EXPECT_GT(GetRow(sPicture, "core"), GetRow(sPicture, "app"));
}

TEST(HousePicture, EveryArrowHasADotAndEveryTargetAHead)
{
    EXPECT_EQ(Count(DrawHouse(c_Rooms, {}), "<circle"), 0);
    const std::string sPicture = DrawHouse(c_Rooms, {{"app", {{"core", nullptr}}}});
    EXPECT_EQ(Count(sPicture, "<circle"), 1);
    EXPECT_EQ(Count(sPicture, "l-5 -10 h10 z"), 1);
    EXPECT_THAT(sPicture, Not(HasSubstr(c_sRed)));
}

TEST(HousePicture, AnArrowThatDoesNotPointDownwardsIsRed)
{
    EXPECT_THAT(DrawHouse(c_Rooms, {{"core", {{"app", nullptr}}}}), HasSubstr(c_sRed));
}

TEST(HousePicture, RoomsOfTestsShareARowUnlessAnotherRoomIncludesThem)
{
    const std::string sPicture = DrawHouse(c_Rooms, {{"app", {{"plain", nullptr}}}});

    EXPECT_THAT(sPicture, HasSubstr("1 more room"));
    EXPECT_EQ(GetRow(sPicture, "check"), -1);
    EXPECT_GT(GetRow(sPicture, "plain"), 0);
}

TEST(HousePicture, TextsAreEscaped)
{
    EXPECT_THAT(DrawHouse(c_Rooms, {}), HasSubstr("the &lt;program&gt; &amp; more"));
}
