#include "headless/pictures/ScaleDown.h"

#include <gtest/gtest.h>

namespace
{

using CBytes = std::vector<std::uint8_t>;

// A picture of one channel's value for each pixel; the others are the value's double and zero.
CWorldImage MakeImage(int width, int height, const CBytes& values)
{
    CBytes pixels;
    for (const std::uint8_t uValue : values)
    {
        pixels.insert(pixels.end(), {uValue, static_cast<std::uint8_t>(2 * uValue), 0});
    }
    return {{width, height}, pixels};
}

} // namespace

TEST(ScaleDown, APixelIsTheMeanOfItsSquare)
{
    const CWorldImage small = ScaleDown(MakeImage(4, 2, {1, 3, 10, 10, 5, 7, 10, 10}), 2);
    EXPECT_EQ(small.GetSize(), (CSize<int>{2, 1}));
    EXPECT_EQ(small.GetPixels(), (CBytes{4, 8, 0, 10, 20, 0}));
}

TEST(ScaleDown, SquaresAtTheEdgesAreCutOff)
{
    const CWorldImage small = ScaleDown(MakeImage(3, 3, {0, 0, 9, 0, 0, 10, 7, 8, 100}), 2);
    EXPECT_EQ(small.GetSize(), (CSize<int>{2, 2}));
    EXPECT_EQ(small.GetPixels(), (CBytes{0, 0, 0, 10, 19, 0, 8, 15, 0, 100, 200, 0}));
}

TEST(ScaleDown, AFactorOfOneChangesNothing)
{
    const CWorldImage image = MakeImage(2, 1, {3, 4});
    EXPECT_EQ(ScaleDown(image, 1).GetPixels(), image.GetPixels());
}
