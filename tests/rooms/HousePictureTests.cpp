#include "tests/rooms/HousePicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using testing::HasSubstr;
using testing::Not;

const std::vector<CRoom> c_Rooms{{3, "check", EnumRoomKind::Tests, "tests"},
                                 {2, "app", EnumRoomKind::Both, "the <program> & more"},
                                 {1, "core", EnumRoomKind::Portable, "numbers"},
                                 {1, "plain", EnumRoomKind::Tests, "plain form"}};

int Count(const std::string& sText, const std::string& sPart)
{
    int count = 0;
    for (std::size_t u = sText.find(sPart); u != std::string::npos; u = sText.find(sPart, u + sPart.size()))
    {
        ++count;
    }
    return count;
}

// The vertical coordinate of a room's name, -1 if the room has no row.
int GetRow(const std::string& sPicture, const std::string& sFolder)
{
    const std::string sBefore = "y=\"";
    const std::size_t uName = sPicture.find("\" class=\"room\">" + sFolder);
    const std::size_t uNumber = uName != std::string::npos ? sPicture.rfind(sBefore, uName) : std::string::npos;
    return uNumber != std::string::npos ? std::stoi(sPicture.substr(uNumber + sBefore.size())) : -1;
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
