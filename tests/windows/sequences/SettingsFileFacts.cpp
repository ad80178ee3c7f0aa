#include "tests/windows/sequences/SettingsFileFacts.h"

#include "tests/sequences/CWindowModel.h"
#include "tests/windows/CRunningApplication.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace
{
constexpr std::array<const char*, 17> c_Keys{"World_width",
                                             "World_height",
                                             "World_background_colour",
                                             "Tot_atoms",
                                             "Atoms_min_radius",
                                             "Atoms_max_radius",
                                             "Atoms_colour_mode",
                                             "Atom_colour_1",
                                             "Atom_colour_1_factor",
                                             "Atom_colour_2",
                                             "Atom_colour_2_factor",
                                             "Atom_colour_3",
                                             "Atom_colour_3_factor",
                                             "WndLeft",
                                             "WndTop",
                                             "WndRight",
                                             "WndBottom"};

std::filesystem::path GetPath()
{
    return CRunningApplication::GetSettingsPath();
}

int GetNumber(const std::multimap<std::string, std::string>& lines, const char* sKey)
{
    const auto found = lines.find(sKey);
    return found == lines.end() || found->second.empty() ? 0 : std::stoi(found->second);
}
} // namespace

void WriteFirstSettings()
{
    std::ofstream file(GetPath(), std::ios::binary | std::ios::trunc);
    file << "[Settings]\r\nWorld_width=" << c_FirstWorld.cx << "\r\nWorld_height=" << c_FirstWorld.cy
         << "\r\nTot_atoms=" << c_iAtoms << "\r\nWndLeft=" << c_FirstWindow.left << "\r\nWndTop=" << c_FirstWindow.top
         << "\r\nWndRight=" << c_FirstWindow.right << "\r\nWndBottom=" << c_FirstWindow.bottom << "\r\n";
}

CFileFacts ReadSettingsFile()
{
    std::multimap<std::string, std::string> lines;
    std::ifstream file(GetPath(), std::ios::binary);
    std::string sLine;
    while (std::getline(file, sLine))
    {
        const std::size_t uEquals = sLine.find('=');
        if (uEquals != std::string::npos)
        {
            lines.emplace(sLine.substr(0, uEquals), sLine.substr(uEquals + 1));
        }
    }
    CFileFacts facts;
    facts.bWhole = lines.size() == c_Keys.size() &&
                   std::all_of(c_Keys.begin(), c_Keys.end(), [&](const char* sKey) { return lines.count(sKey) == 1; });
    facts.window = {GetNumber(lines, "WndLeft"), GetNumber(lines, "WndTop"), GetNumber(lines, "WndRight"),
                    GetNumber(lines, "WndBottom")};
    facts.world = {GetNumber(lines, "World_width"), GetNumber(lines, "World_height")};
    return facts;
}
