#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

enum class EnumRoomKind : std::uint8_t
{
    Portable, // also built natively, without windows.h
    Windows,  // Windows only
    Both,     // portable rules and the windows that use them
    Tool,     // a program for developers
    Tests
};

// A folder with sources.
struct CRoom
{
    int iFloor{}; // 1 is the ground
    std::string sFolder;
    EnumRoomKind eKind{};
    std::string sContents; // what lives there
};

// The longest contents that fit into the picture, in bytes.
constexpr std::size_t c_uMaxContents = 60;

// Reads the rows of docs/rooms.md: "| floor | `folder` | kind | what lives there |", floors from the highest to the
// lowest. Other lines do not count. Throws std::runtime_error with the number of a row that is wrong.
std::vector<CRoom> ParseRoomTable(std::string_view sText);

// The room of that folder; null if there is none.
const CRoom* FindRoom(const std::vector<CRoom>& rooms, std::string_view sFolder);
