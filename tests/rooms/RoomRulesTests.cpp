#include "tests/rooms/RoomRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<CRoom> MakeRooms()
{
    return {{4, "check", EnumRoomKind::Tests, "tests"},      {3, "app", EnumRoomKind::Both, "the program"},
            {3, "bench", EnumRoomKind::Tool, "measures"},    {2, "window", EnumRoomKind::Windows, "a window"},
            {2, "plain", EnumRoomKind::Tests, "plain form"}, {1, "core", EnumRoomKind::Portable, "numbers"}};
}

// A small house that breaks no rule.
CSourceTree MakeTree()
{
    return {{"check/Tests.cpp", "#include \"app/Program.h\"\n#include \"plain/Plain.h\"\n"},
            {"app/Program.h", "#pragma once\n#include \"window/Window.h\"\n"},
            {"app/Program.cpp", "#include \"app/Program.h\"\n#include \"core/Number.h\"\n"},
            {"bench/Bench.cpp", "#include \"plain/Plain.h\"\n"},
            {"window/Window.h", "#include \"core/Number.h\"\n"},
            {"plain/Plain.h", "#include \"core/Number.h\"\n"},
            {"core/Number.h", "#include <vector>\n"}};
}

// The findings if one file of that house has another text.
std::vector<std::string> CheckWith(const std::string& sFile, const std::string& sText)
{
    CSourceTree tree = MakeTree();
    tree[sFile] = sText;
    return CheckRooms(tree, MakeRooms());
}

} // namespace

TEST(RoomRules, AHouseWhoseArrowsPointDownwardsHasNoFindings)
{
    EXPECT_THAT(CheckRooms(MakeTree(), MakeRooms()), IsEmpty());
}

TEST(RoomRules, AnArrowUpwardIsFoundWithFileLineIncludeAndFloors)
{
    EXPECT_THAT(
        CheckWith("core/Random.cpp", "// why\n\n#include \"window/Window.h\"\n"),
        testing::Contains("core/Random.cpp:3: #include \"window/Window.h\": an arrow upward: core is on floor 1, "
                          "window is on floor 2"));
}

TEST(RoomRules, AnArrowToAnotherRoomOfTheSameFloorIsFound)
{
    EXPECT_THAT(
        CheckWith("bench/Bench.cpp", "#include \"app/Program.h\"\n"),
        ElementsAre("bench/Bench.cpp:1: #include \"app/Program.h\": an arrow on one floor: bench is on floor 3, "
                    "app is on floor 3"));
}

TEST(RoomRules, AnIncludeInsideItsRoomIsAllowed)
{
    EXPECT_THAT(CheckWith("core/Number.cpp", "#include \"core/Number.h\"\n"), IsEmpty());
}

TEST(RoomRules, ARoomOfTheProductMayNotIncludeTestsOfAnyFloor)
{
    EXPECT_THAT(CheckWith("app/Program.cpp", "#include \"plain/Plain.h\"\n"),
                ElementsAre("app/Program.cpp:1: #include \"plain/Plain.h\": a room of the product includes no tests"));
}

TEST(RoomRules, APortableRoomMayNotIncludeOneForWindows)
{
    std::vector<CRoom> rooms = MakeRooms();
    rooms[1].eKind = EnumRoomKind::Portable;

    EXPECT_THAT(CheckRooms(MakeTree(), rooms), ElementsAre("app/Program.h:2: #include \"window/Window.h\": app is "
                                                           "portable, window is for Windows only"));
}

TEST(RoomRules, AFolderWithoutARowIsFound)
{
    EXPECT_THAT(CheckWith("core/deep/Deeper.cpp", "int i;\n"),
                ElementsAre("core/deep: has sources, but docs/rooms.md has no row for it"));
}

TEST(RoomRules, ARowWithoutSourcesIsFound)
{
    CSourceTree tree = MakeTree();
    tree.erase("bench/Bench.cpp");

    EXPECT_THAT(CheckRooms(tree, MakeRooms()), ElementsAre("bench: has a row in docs/rooms.md, but no sources"));
}

TEST(RoomRules, ANameWithoutAFileIsFound)
{
    EXPECT_THAT(CheckWith("core/Number.cpp", "#include \"core/Nmber.h\"\n"),
                ElementsAre("core/Number.cpp:1: #include \"core/Nmber.h\": names no file of this tree"));
}

TEST(RoomRules, AMacroInPlaceOfANameIsFound)
{
    EXPECT_THAT(CheckWith("core/Number.cpp", "#include WINDOW_HEADER\n"),
                ElementsAre("core/Number.cpp:1: #include WINDOW_HEADER: an include names its file, not a macro"));
}

TEST(RoomRules, ACircleBetweenRoomsIsFoundWithItsArrows)
{
    const std::vector<std::string> findings =
        CheckWith("core/Random.cpp", "#include \"core/Number.h\"\n#include \"window/Window.h\"\n");

    EXPECT_THAT(findings, testing::Contains("a circle between rooms: core -> window -> core\n"
                                            "    core/Random.cpp:2: #include \"window/Window.h\"\n"
                                            "    window/Window.h:1: #include \"core/Number.h\""));
}

TEST(RoomRules, ACircleBetweenFilesIsFoundAndAHeaderIsOneWithItsSource)
{
    CSourceTree tree = MakeTree();
    tree["core/A.h"] = "#include \"core/C.h\"\n";
    tree["core/B.h"] = "int b();\n";
    tree["core/B.cpp"] = "#include \"core/B.h\"\n#include \"core/A.h\"\n";
    tree["core/C.h"] = "#include \"core/B.h\"\n";

    EXPECT_THAT(CheckRooms(tree, MakeRooms()),
                ElementsAre("a circle between files: core/A -> core/C -> core/B -> core/A\n"
                            "    core/A.h:1: #include \"core/C.h\"\n"
                            "    core/C.h:1: #include \"core/B.h\"\n"
                            "    core/B.cpp:2: #include \"core/A.h\""));
}
