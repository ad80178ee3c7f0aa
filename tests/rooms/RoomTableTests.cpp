#include "tests/rooms/RoomTable.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

// The message that refuses a table; empty if it is accepted.
std::string GetRefusal(std::string_view sText)
{
    try
    {
        ParseRoomTable(sText);
        return {};
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
}

} // namespace

TEST(RoomTable, OnlyRowsAreRead)
{
    const std::vector<CRoom> rooms = ParseRoomTable("# The rooms\n"
                                                    "\n"
                                                    "| floor | folder | kind | what lives there |\n"
                                                    "|---:|---|---|---|\n"
                                                    "| 2 | `app` | both | the program |\n"
                                                    "| 1 | `classes/core` | portable | numbers, texts |");

    ASSERT_EQ(rooms.size(), 2U);
    EXPECT_EQ(rooms[0].sFolder, "app");
    EXPECT_EQ(rooms[0].eKind, EnumRoomKind::Both);
    EXPECT_EQ(rooms[1].iFloor, 1);
    EXPECT_EQ(rooms[1].sFolder, "classes/core");
    EXPECT_EQ(rooms[1].eKind, EnumRoomKind::Portable);
    EXPECT_EQ(rooms[1].sContents, "numbers, texts");
}

TEST(RoomTable, EveryKindHasItsWord)
{
    EXPECT_EQ(ParseRoomTable("| 1 | `a` | Windows | x |")[0].eKind, EnumRoomKind::Windows);
    EXPECT_EQ(ParseRoomTable("| 1 | `a` | tool | x |")[0].eKind, EnumRoomKind::Tool);
    EXPECT_EQ(ParseRoomTable("| 1 | `a` | tests | x |")[0].eKind, EnumRoomKind::Tests);
}

TEST(RoomTable, AWrongRowIsRefusedWithItsLine)
{
    EXPECT_EQ(GetRefusal("\n| 1 | `a` | tests |"),
              "docs/rooms.md:2: a row has four cells: floor, folder, kind, what lives there");
    EXPECT_EQ(GetRefusal("| 0 | `a` | tests | x |"), "docs/rooms.md:1: the floor must be a number from 1");
    EXPECT_EQ(GetRefusal("| 1x | `a` | tests | x |"), "docs/rooms.md:1: the floor must be a number from 1");
    EXPECT_EQ(GetRefusal("| 1 | a | tests | x |"), "docs/rooms.md:1: the folder must be between backquotes");
    EXPECT_EQ(GetRefusal("| 1 | `a` | cellar | x |"),
              "docs/rooms.md:1: the kind is portable, Windows, both, tool or tests");
}

TEST(RoomTable, TheContentsMustFitIntoThePicture)
{
    EXPECT_EQ(GetRefusal("| 1 | `a` | tests | " + std::string(c_uMaxContents, 'x') + " |"), "");
    const std::string sRefusal =
        "docs/rooms.md:1: what lives there has 1 to 60 characters: the picture has no place for more";
    EXPECT_EQ(GetRefusal("| 1 | `a` | tests | " + std::string(c_uMaxContents + 1, 'x') + " |"), sRefusal);
    EXPECT_EQ(GetRefusal("| 1 | `a` | tests | |"), sRefusal);
}

TEST(RoomTable, AFolderHasOneRowAndTheGroundComesLast)
{
    EXPECT_EQ(GetRefusal("| 2 | `a` | tests | x |\n| 1 | `a` | tests | x |"), "docs/rooms.md:2: a has a row already");
    EXPECT_EQ(GetRefusal("| 1 | `a` | tests | x |\n| 2 | `b` | tests | x |"),
              "docs/rooms.md:2: the floors go from the highest to the lowest");
}

TEST(RoomTable, ARoomIsFoundByItsFolder)
{
    const std::vector<CRoom> rooms = ParseRoomTable("| 1 | `a` | tests | x |");

    EXPECT_EQ(FindRoom(rooms, "a"), &rooms[0]);
    EXPECT_EQ(FindRoom(rooms, "b"), nullptr);
}
