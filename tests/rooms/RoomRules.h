#pragma once

#include "tests/rooms/IncludeGraph.h"
#include "tests/rooms/RoomTable.h"

#include <string>
#include <vector>

// What is wrong with a tree, one text for each finding; a text about an include begins with "file:line: directive".
// The rules:
//   - every folder with sources is a room of the table, and every room of the table has sources;
//   - an include names a file of the tree, and no macro;
//   - an include that leaves its room points to a lower floor;
//   - a room of the product includes no tests, and a portable one nothing that only Windows has;
//   - no circle between rooms, and none between files, where a .h and a .cpp of one name are one file.
std::vector<std::string> CheckRooms(const CSourceTree& tree, const std::vector<CRoom>& rooms);
