#include "classes/core/BackdropTexture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

// Neighbouring pixels across opposite edges must not differ more than neighbours inside the texture.
TEST(BackdropTexture, ItsOppositeEdgesFitTogether)
{
    const std::vector<std::uint32_t> pixels = MakeBackdropTexture();
    constexpr int c_iLength = c_iBackdropTextureLength;
    const auto Red = [&](int x, int y) {
        const auto uIndex =
            static_cast<std::size_t>(y % c_iLength) * c_iLength + static_cast<std::size_t>(x % c_iLength);
        return static_cast<int>((pixels[uIndex] >> 16) & 0xFF);
    };
    int iLargestInside = 0;
    int iLargestAtSeam = 0;
    for (int y = 0; y < c_iLength; ++y)
    {
        for (int x = 0; x < c_iLength; ++x)
        {
            int& iLargest = x == c_iLength - 1 || y == c_iLength - 1 ? iLargestAtSeam : iLargestInside;
            iLargest = std::max({iLargest, std::abs(Red(x, y) - Red(x + 1, y)), std::abs(Red(x, y) - Red(x, y + 1))});
        }
    }
    EXPECT_LE(iLargestAtSeam, iLargestInside);
}
