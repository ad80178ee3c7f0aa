#include "tests/rooms/RoomRules.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace
{

void CheckRegistration(const CSourceTree& tree, const std::vector<CRoom>& rooms, std::vector<std::string>& findings)
{
    std::set<std::string> folders;
    for (const auto& [sFile, sText] : tree)
    {
        folders.insert(GetFolder(sFile));
    }
    for (const std::string& sFolder : folders)
    {
        if (FindRoom(rooms, sFolder) == nullptr)
        {
            findings.push_back(sFolder + ": has sources, but docs/rooms.md has no row for it");
        }
    }
    for (const CRoom& room : rooms)
    {
        if (!folders.contains(room.sFolder))
        {
            findings.push_back(room.sFolder + ": has a row in docs/rooms.md, but no sources");
        }
    }
}

bool IsProduct(const CRoom& room)
{
    return room.eKind != EnumRoomKind::Tests && room.eKind != EnumRoomKind::Tool;
}

std::string DescribeFloor(const CRoom& room)
{
    return room.sFolder + " is on floor " + std::to_string(room.iFloor);
}

// The rule that an arrow between two rooms breaks; empty if it breaks none.
std::string FindBrokenRule(const CRoom& from, const CRoom& to)
{
    if (IsProduct(from) && to.eKind == EnumRoomKind::Tests)
    {
        return "a room of the product includes no tests";
    }
    if (to.iFloor >= from.iFloor)
    {
        const std::string sDirection = to.iFloor > from.iFloor ? "an arrow upward" : "an arrow on one floor";
        return sDirection + ": " + DescribeFloor(from) + ", " + DescribeFloor(to);
    }
    if (from.eKind == EnumRoomKind::Portable && to.eKind == EnumRoomKind::Windows)
    {
        return from.sFolder + " is portable, " + to.sFolder + " is for Windows only";
    }
    return {};
}

void CheckArrow(const CInclude& include, const std::vector<CRoom>& rooms, std::vector<std::string>& findings)
{
    if (!include.bChecked)
    {
        findings.push_back(DescribeInclude(include) + ": an include names its file, not a macro");
        return;
    }
    if (include.sTarget.empty())
    {
        findings.push_back(DescribeInclude(include) + ": names no file of this tree");
        return;
    }
    const CRoom* const pFrom = FindRoom(rooms, GetFolder(include.sFile));
    const CRoom* const pTo = FindRoom(rooms, GetFolder(include.sTarget));
    // A folder without a row has a finding of its own.
    if (pFrom == nullptr || pTo == nullptr || pFrom == pTo)
    {
        return;
    }
    const std::string sRule = FindBrokenRule(*pFrom, *pTo);
    if (!sRule.empty())
    {
        findings.push_back(DescribeInclude(include) + ": " + sRule);
    }
}

void CheckCircles(const CGraph& graph, std::string_view sWhat, std::vector<std::string>& findings)
{
    for (const std::vector<std::string>& circle : FindCircles(graph))
    {
        std::string sNames;
        std::string sArrows;
        for (std::size_t u = 0; u < circle.size(); ++u)
        {
            const std::string& sNext = circle[(u + 1) % circle.size()];
            sNames += circle[u] + " -> ";
            sArrows += "\n    " + DescribeInclude(*graph.at(circle[u]).at(sNext));
        }
        findings.push_back("a circle between " + std::string(sWhat) + ": " + sNames + circle.front() + sArrows);
    }
}

} // namespace

std::vector<std::string> CheckRooms(const CSourceTree& tree, const std::vector<CRoom>& rooms)
{
    std::vector<std::string> findings;
    const std::vector<CInclude> includes = FindIncludes(tree);
    CheckRegistration(tree, rooms, findings);
    for (const CInclude& include : includes)
    {
        CheckArrow(include, rooms, findings);
    }
    CheckCircles(MakeFolderGraph(includes), "rooms", findings);
    CheckCircles(MakeFileGraph(includes), "files", findings);
    return findings;
}
