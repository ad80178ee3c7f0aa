// Checks the graph of includes against docs/rooms.md, and draws the house from both.

#include "tests/rooms/HousePicture.h"
#include "tests/rooms/IncludeGraph.h"
#include "tests/rooms/RoomRules.h"
#include "tests/rooms/RoomTable.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string_view>

namespace
{

namespace fs = std::filesystem;

constexpr const char* c_sPicture = "docs/images/house.svg";

int Check(const CSourceTree& tree, const std::vector<CRoom>& rooms)
{
    const std::vector<std::string> findings = CheckRooms(tree, rooms);
    for (const std::string& sFinding : findings)
    {
        std::cout << sFinding << "\n";
    }
    std::cout << rooms.size() << " rooms, " << tree.size() << " sources, " << findings.size() << " findings\n";
    return findings.empty() ? 0 : 1;
}

int Draw(const fs::path& root, const std::string& sPicture)
{
    std::ofstream file(root / c_sPicture, std::ios::binary);
    file << sPicture << std::flush;
    if (!file)
    {
        throw std::runtime_error(std::string(c_sPicture) + ": cannot be written");
    }
    return 0;
}

int Compare(const fs::path& root, const std::string& sPicture)
{
    if (ReadWholeFile(root / c_sPicture) == sPicture)
    {
        return 0;
    }
    std::cout << c_sPicture << " does not match the includes: draw it again with kinetarium-rooms draw\n";
    return 1;
}

int Run(std::string_view sCommand, const fs::path& root)
{
    const CSourceTree tree = ReadSourceTree(root);
    const std::vector<CRoom> rooms = ParseRoomTable(ReadWholeFile(root / "docs/rooms.md"));
    if (sCommand == "check")
    {
        return Check(tree, rooms);
    }
    const std::vector<CInclude> includes = FindIncludes(tree);
    const std::string sPicture = DrawHouse(rooms, MakeFolderGraph(includes));
    return sCommand == "draw" ? Draw(root, sPicture) : Compare(root, sPicture);
}

} // namespace

int main(int iArguments, char** ppArguments)
{
    const std::string_view sCommand = iArguments == 3 ? ppArguments[1] : "";
    if (sCommand != "check" && sCommand != "draw" && sCommand != "compare")
    {
        std::cerr << "usage: kinetarium-rooms check|draw|compare ROOT\n"
                     "  check    fails with a list where an include of the tree breaks a rule of docs/rooms.md\n"
                     "  draw     writes docs/images/house.svg\n"
                     "  compare  fails unless docs/images/house.svg is what it would write\n";
        return 2;
    }
    try
    {
        return Run(sCommand, ppArguments[2]);
    }
    catch (const std::exception& error)
    {
        std::cerr << error.what() << "\n";
        return 1;
    }
}
