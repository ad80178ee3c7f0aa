#include "classes/core/CColour.h"

#include <gtest/gtest.h>

namespace
{

TEST(Colour, RedIsTheLowestByteAndTheHighestIsUnused)
{
    static_assert(MakeColour(0x12, 0x34, 0x56) == 0x00563412);
    static_assert(GetRed(0xFF563412) == 0x12);
    static_assert(GetGreen(0xFF563412) == 0x34);
    static_assert(GetBlue(0xFF563412) == 0x56);
}

TEST(Colour, EveryValueSurvivesBeingSplitIntoChannels)
{
    for (unsigned u = 0; u <= 0xFF; ++u)
    {
        const auto uByte = static_cast<std::uint8_t>(u);
        const ColourRef cr = MakeColour(uByte, static_cast<std::uint8_t>(~u), static_cast<std::uint8_t>(u / 2));
        EXPECT_EQ(MakeColour(GetRed(cr), GetGreen(cr), GetBlue(cr)), cr);
    }
}

} // namespace
