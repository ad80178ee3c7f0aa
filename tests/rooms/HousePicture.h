#pragma once

#include "tests/rooms/IncludeGraph.h"
#include "tests/rooms/RoomTable.h"

#include <string>
#include <vector>

// The picture of the house as SVG: a row for each room, from the highest floor to the ground, and an arrow for each
// included room, down from its users to it. Arrows that point to no lower floor are red. Rooms of tests that only tests
// include share one row.
std::string DrawHouse(const std::vector<CRoom>& rooms, const CGraph& folders);
