#include "tests/rooms/RoomTable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>
#include <utility>

namespace
{

constexpr std::array<std::pair<std::string_view, EnumRoomKind>, 5> c_Kinds{{{"portable", EnumRoomKind::Portable},
                                                                            {"Windows", EnumRoomKind::Windows},
                                                                            {"both", EnumRoomKind::Both},
                                                                            {"tool", EnumRoomKind::Tool},
                                                                            {"tests", EnumRoomKind::Tests}}};

std::string_view Trim(std::string_view sText)
{
    const std::size_t uFirst = std::min(sText.find_first_not_of(' '), sText.size());
    return sText.substr(uFirst, sText.find_last_not_of(' ') + 1 - uFirst);
}

// The cells between the bars of a line; none if the line is not a row of a table.
std::vector<std::string_view> SplitCells(std::string_view sLine)
{
    std::vector<std::string_view> cells;
    if (!sLine.starts_with('|') || !sLine.ends_with('|'))
    {
        return cells;
    }
    while (sLine.size() > 1)
    {
        sLine.remove_prefix(1);
        const std::size_t uBar = sLine.find('|');
        cells.push_back(Trim(sLine.substr(0, uBar)));
        sLine.remove_prefix(uBar);
    }
    return cells;
}

bool IsHeading(const std::vector<std::string_view>& cells)
{
    return cells.empty() || cells.front() == "floor" || cells.front().starts_with('-');
}

[[noreturn]] void Refuse(std::size_t uLine, std::string_view sWhat)
{
    throw std::runtime_error("docs/rooms.md:" + std::to_string(uLine) + ": " + std::string(sWhat));
}

int ParseFloor(std::string_view sText, std::size_t uLine)
{
    int iFloor = 0;
    const std::from_chars_result result = std::from_chars(sText.data(), sText.data() + sText.size(), iFloor);
    if (result.ec != std::errc() || result.ptr != sText.data() + sText.size() || iFloor < 1)
    {
        Refuse(uLine, "the floor must be a number from 1");
    }
    return iFloor;
}

CRoom ParseRow(const std::vector<std::string_view>& cells, std::size_t uLine)
{
    if (cells.size() != 4)
    {
        Refuse(uLine, "a row has four cells: floor, folder, kind, what lives there");
    }
    CRoom room;
    room.iFloor = ParseFloor(cells[0], uLine);
    if (cells[1].size() < 3 || !cells[1].starts_with('`') || !cells[1].ends_with('`'))
    {
        Refuse(uLine, "the folder must be between backquotes");
    }
    room.sFolder = cells[1].substr(1, cells[1].size() - 2);
    const auto* const pKind =
        std::find_if(c_Kinds.begin(), c_Kinds.end(), [&cells](const auto& kind) { return kind.first == cells[2]; });
    if (pKind == c_Kinds.end())
    {
        Refuse(uLine, "the kind is portable, Windows, both, tool or tests");
    }
    room.eKind = pKind->second;
    room.sContents = cells[3];
    if (room.sContents.empty() || room.sContents.size() > c_uMaxContents)
    {
        Refuse(uLine, "what lives there has 1 to " + std::to_string(c_uMaxContents) +
                          " characters: the picture has no place for more");
    }
    return room;
}

} // namespace

std::vector<CRoom> ParseRoomTable(std::string_view sText)
{
    std::vector<CRoom> rooms;
    for (std::size_t uLine = 1; !sText.empty(); ++uLine)
    {
        const std::size_t uEnd = std::min(sText.find('\n'), sText.size());
        const std::vector<std::string_view> cells = SplitCells(sText.substr(0, uEnd));
        sText.remove_prefix(std::min(uEnd + 1, sText.size()));
        if (IsHeading(cells))
        {
            continue;
        }
        CRoom room = ParseRow(cells, uLine);
        if (FindRoom(rooms, room.sFolder) != nullptr)
        {
            Refuse(uLine, room.sFolder + " has a row already");
        }
        if (!rooms.empty() && room.iFloor > rooms.back().iFloor)
        {
            Refuse(uLine, "the floors go from the highest to the lowest");
        }
        rooms.push_back(std::move(room));
    }
    return rooms;
}

const CRoom* FindRoom(const std::vector<CRoom>& rooms, std::string_view sFolder)
{
    const auto found =
        std::find_if(rooms.begin(), rooms.end(), [sFolder](const CRoom& room) { return room.sFolder == sFolder; });
    return found == rooms.end() ? nullptr : &*found;
}
