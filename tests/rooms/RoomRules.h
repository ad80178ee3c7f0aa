#pragma once

#include "tests/rooms/IncludeGraph.h"
#include "tests/rooms/RoomTable.h"

#include <string>
#include <vector>

// The violations in a tree, one text for each; a text about an include begins with "file:line: directive".
// The rules:
//   - every folder with sources is a room of the table, and every room of the table has sources;
//   - an include names a file of the tree, not a macro;
//   - an include that leaves its room points to a lower floor;
//   - a room of the product includes no tests, and a portable room includes no room for Windows only;
//   - there is no circle between rooms or between files; a .h and a .cpp of one name count as one file.
std::vector<std::string> CheckRooms(const CSourceTree& tree, const std::vector<CRoom>& rooms);
