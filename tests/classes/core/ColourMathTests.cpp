#include "classes/core/ColourMath.h"

#include <gtest/gtest.h>

TEST(ColourMath, TextIsBlackOrWhiteWhicheverHasTheHigherContrast)
{
    EXPECT_EQ(GetContrastColour(0xFFFFFF), 0u);
    EXPECT_EQ(GetContrastColour(0), 0xFFFFFFu);
    EXPECT_NEAR(GetContrast(0, 0xFFFFFF), 21.0, 1e-9);
    for (unsigned uRed = 0; uRed < 256; uRed += 15)
    {
        for (unsigned uGreen = 0; uGreen < 256; uGreen += 15)
        {
            for (unsigned uBlue = 0; uBlue < 256; uBlue += 15)
            {
                const ColourRef cr = uRed | uGreen << 8 | uBlue << 16;
                EXPECT_GE(GetContrast(cr, GetContrastColour(cr)), 4.5) << cr;
            }
        }
    }
}

TEST(ColourMath, BlendingGoesFromTheFirstColourToTheSecond)
{
    EXPECT_EQ(BlendColours(0x102030, 0xFFFFFF, 0), 0x102030u);
    EXPECT_EQ(BlendColours(0x102030, 0xA0B0C0, 100), 0xA0B0C0u);
    EXPECT_EQ(BlendColours(0x000000, 0xFFFFFF, 50), 0x808080u);
}
