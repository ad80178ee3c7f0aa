// Draws the program's icon and backdrop. All numbers are fixed, so the files are the same on every machine: after a
// change of the drawing run the program and commit its files.

#include "resources/drawing/AtomIcon.h"
#include "resources/drawing/Backdrop.h"
#include "resources/drawing/BitmapFiles.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace
{
// The sizes, in pixels, that Windows asks for: title bar and lists (16 to 24), task bar (24 to 48), folders (48 to
// 256).
constexpr std::array<int, 8> c_aIconSides = {16, 20, 24, 32, 40, 48, 64, 256};

using Bytes = std::vector<std::uint8_t>;

Bytes DrawIconFile()
{
    std::vector<CImage> images;
    images.reserve(c_aIconSides.size());
    for (const int iSide : c_aIconSides)
    {
        images.push_back(DrawAtomIcon(iSide));
    }
    return MakeIconFile(images);
}

bool Save(const std::string& sPath, const Bytes& bytes)
{
    std::ofstream file(sPath, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
    {
        std::cerr << "cannot write " << sPath << "\n";
        return false;
    }
    std::cout << sPath << ": " << bytes.size() << " bytes\n";
    return true;
}

bool IsSame(const std::string& sPath, const Bytes& bytes)
{
    std::ifstream file(sPath, std::ios::binary);
    const Bytes found{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (found == bytes)
    {
        return true;
    }
    std::cerr << sPath << " is not what the drawing gives: draw it again and commit it\n";
    return false;
}
} // namespace

int main(int iArguments, char** ppArguments)
{
    const std::vector<std::string_view> arguments(ppArguments + 1, ppArguments + iArguments);
    if (arguments.size() != 2 || (arguments[0] != "draw" && arguments[0] != "check"))
    {
        std::cerr << "usage: kinetarium-draw-resources draw|check FOLDER\n"
                     "  draw   writes Kinetarium.ico and backdrop.bmp into FOLDER\n"
                     "  check  fails unless the two files in FOLDER are the ones that it would write\n";
        return 2;
    }
    const auto treat = arguments[0] == "draw" ? Save : IsSame;
    const std::string sFolder(arguments[1]);
    const bool bIcon = treat(sFolder + "/Kinetarium.ico", DrawIconFile());
    const bool bBackdrop = treat(sFolder + "/backdrop.bmp", MakeBitmapFile(DrawBackdrop()));
    return bIcon && bBackdrop ? 0 : 1;
}
