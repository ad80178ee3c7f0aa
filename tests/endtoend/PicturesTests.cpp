#include "tests/endtoend/CPngPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

// Compares the pictures of the documents with those that scripts/make-pictures.sh has just taken of this build. Both
// show the same fonts and controls, though the Wines may differ. Worlds look different in each run, so their pixels are
// only counted.

namespace
{
const std::filesystem::path c_documented = KINETARIUM_DOCUMENTED_PICTURES;
const std::filesystem::path c_taken = KINETARIUM_TAKEN_PICTURES;

// The title bars of Wine 8 are 18 pixels high, those of Wine 10 are 25. What lies below them is lower by that.
constexpr int c_iTitleBars = 7;

// A colour that is missing in the palette of a picture moves by fewer levels (of 255), and so does the backdrop behind
// a text that has another distance from the title bar. The strokes of a text differ from both by more.
constexpr int c_iOtherColour = 48;

// The shadow around the title of a message differs in 8 pixels between the two Wines. A changed digit differs in more.
constexpr int c_iFewPixels = 12;

constexpr std::uintmax_t c_uLargestFile = 150'000; // bytes

constexpr CPixel c_black{0, 0, 0};
const std::vector<CPixel> c_atoms{{255, 0, 0}, {128, 128, 128}, {0, 255, 0}};

std::set<std::string> PicturesIn(const std::filesystem::path& folder)
{
    std::set<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(folder))
    {
        if (file.path().extension() == ".png")
        {
            names.insert(file.path().filename().string());
        }
    }
    return names;
}

bool HasOtherColour(const CPixel& pixel, const CPixel& other)
{
    bool bOther = false;
    for (std::size_t u = 0; u < pixel.size(); ++u)
    {
        bOther = bOther || std::abs(pixel.at(u) - other.at(u)) > c_iOtherColour;
    }
    return bOther;
}

int CountOtherPixels(const CPngPicture& picture, const CPart& part, const CPngPicture& other, int iLower)
{
    int iCount = 0;
    for (int iY = part.top; iY < part.bottom; ++iY)
    {
        for (int iX = part.left; iX < part.right; ++iX)
        {
            iCount += HasOtherColour(picture.GetPixel(iX, iY), other.GetPixel(iX, iY + iLower)) ? 1 : 0;
        }
    }
    return iCount;
}

// Of all places that the part can have below another title bar, the one that fits best counts.
int CountOtherPixels(const CPngPicture& picture, const CPart& part, const CPngPicture& other)
{
    int iFewest = std::numeric_limits<int>::max();
    for (int iLower = -c_iTitleBars; iLower <= c_iTitleBars; ++iLower)
    {
        if (part.top + iLower >= 0 && part.bottom + iLower <= other.GetHeight())
        {
            iFewest = std::min(iFewest, CountOtherPixels(picture, part, other, iLower));
        }
    }
    return iFewest;
}

std::map<CPixel, int> CountColours(const CPngPicture& picture, const CPart& part)
{
    std::map<CPixel, int> counts;
    for (int iY = part.top; iY < part.bottom; ++iY)
    {
        for (int iX = part.left; iX < part.right; ++iX)
        {
            ++counts[picture.GetPixel(iX, iY)];
        }
    }
    return counts;
}

CPart Whole(const CPngPicture& picture)
{
    return {0, 0, picture.GetWidth(), picture.GetHeight()};
}

// The parts of a picture of the whole window.
CPart Version(const CPngPicture& picture)
{
    const int iRight = picture.GetWidth();
    const int iBottom = picture.GetHeight();
    return {iRight - 190, iBottom - 46, iRight - 8, iBottom - 30};
}
CPart Panel(const CPngPicture& picture)
{
    constexpr int c_iLow = 500;
    const int iRight = picture.GetWidth();
    const int iBottom = picture.GetHeight();
    // The low window shows the last rows, and how much of the panel depends on the title bar. Its scroll bar shows it
    // too.
    return iBottom < c_iLow ? CPart{iRight - 250, iBottom - 280, iRight - 36, iBottom - 72}
                            : CPart{iRight - 250, 32, iRight - 10, iBottom - 60};
}
// A part of every world, inside of its edges.
CPart World(const CPngPicture& picture)
{
    return {140, 110, 600, picture.GetHeight() - 110};
}
} // namespace

class Pictures : public testing::TestWithParam<const char*>
{
protected:
    const CPngPicture m_documented{c_documented / GetParam()};
    const CPngPicture m_taken{c_taken / GetParam()};
};

class PicturesOfWindows : public Pictures
{
};
class PicturesOfParts : public Pictures
{
};

namespace
{
std::string NameOf(const testing::TestParamInfo<const char*>& row)
{
    std::string sName = std::filesystem::path(row.param).stem().string();
    std::erase(sName, '-');
    return sName;
}
} // namespace

INSTANTIATE_TEST_SUITE_P(Documents, PicturesOfWindows,
                         testing::Values("run.png", "fixed.png", "kinetarium.png", "lowered.png"), NameOf);
INSTANTIATE_TEST_SUITE_P(Documents, PicturesOfParts,
                         testing::Values("panel-speed.png", "panel-fixed.png", "message.png"), NameOf);

TEST(Pictures, TheDocumentsHaveExactlyThoseThatTheScriptTakes)
{
    EXPECT_EQ(PicturesIn(c_documented), PicturesIn(c_taken));
    EXPECT_FALSE(PicturesIn(c_taken).empty());
}

TEST(Pictures, TheFilesAreSmall)
{
    for (const std::string& sName : PicturesIn(c_documented))
    {
        EXPECT_LE(std::filesystem::file_size(c_documented / sName), c_uLargestFile) << sName;
        const CPngPicture picture(c_documented / sName);
        EXPECT_LE(CountColours(picture, Whole(picture)).size(), 256U) << sName;
    }
}

TEST_P(PicturesOfWindows, HaveTheSizeOfTheWindow)
{
    EXPECT_EQ(m_documented.GetWidth(), m_taken.GetWidth());
    EXPECT_EQ(m_documented.GetHeight(), m_taken.GetHeight());
}

TEST_P(PicturesOfParts, HaveTheSizeOfTheirPart)
{
    EXPECT_EQ(m_documented.GetWidth(), m_taken.GetWidth());
    EXPECT_LE(std::abs(m_documented.GetHeight() - m_taken.GetHeight()), c_iTitleBars);
}

TEST_P(PicturesOfWindows, ShowTheVersionOfThisBuild)
{
    EXPECT_LE(CountOtherPixels(m_documented, Version(m_documented), m_taken), c_iFewPixels);
}

TEST_P(PicturesOfWindows, ShowThePanelOfThisBuild)
{
    EXPECT_LE(CountOtherPixels(m_documented, Panel(m_documented), m_taken), c_iFewPixels);
}

TEST_P(PicturesOfParts, ShowThisBuild)
{
    // Without the frame.
    const CPart part{7, 35, m_documented.GetWidth() - 7, m_documented.GetHeight() - 10};
    EXPECT_LE(CountOtherPixels(m_documented, part, m_taken), c_iFewPixels);
}

TEST_P(PicturesOfWindows, ShowAtomsInThreeColoursWithSmoothEdges)
{
    std::map<CPixel, int> counts = CountColours(m_documented, World(m_documented));
    const CPart world = World(m_documented);
    int iRest = (world.right - world.left) * (world.bottom - world.top) - counts[c_black];
    for (const CPixel& atom : c_atoms)
    {
        EXPECT_GE(counts[atom], 1000);
        iRest -= counts[atom];
    }
    // Only Direct2D smooths them; with GDI this is 0.
    EXPECT_GE(iRest, 1000);
}

TEST_P(PicturesOfWindows, ShowAWorldWhoeverDrawsIt)
{
    if (GetParam() != std::string("fixed.png")) // which stays black without Direct2D
    {
        std::map<CPixel, int> counts = CountColours(m_taken, World(m_taken));
        for (const CPixel& atom : c_atoms)
        {
            EXPECT_GE(counts[atom], 1000);
        }
    }
}
