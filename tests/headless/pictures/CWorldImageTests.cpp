#include "headless/pictures/CWorldImage.h"
#include "settings/CSettings.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

constexpr ColourRef c_crBlack = 0x000000;
constexpr ColourRef c_crWhite = 0xFFFFFF;
constexpr ColourRef c_crRed = 0x0000FF;
constexpr ColourRef c_crGrey = 0x808080;
constexpr ColourRef c_crGreen = 0x00FF00;

ColourRef GetPixel(const CWorldImage& image, int x, int y)
{
    const std::size_t uPixel = static_cast<std::size_t>(y * image.GetSize().cx + x);
    const std::uint8_t* const pChannels = &image.GetPixels()[3 * uPixel];
    return MakeColour(pChannels[0], pChannels[1], pChannels[2]);
}

// The area of the white circle, in pixels.
double GetArea(const CWorldImage& image)
{
    double area = 0;
    for (int y = 0; y < image.GetSize().cy; ++y)
    {
        for (int x = 0; x < image.GetSize().cx; ++x)
        {
            area += GetRed(GetPixel(image, x, y)) / 255.0;
        }
    }
    return area;
}

CSettings MakeSettings(EnumAtomColourMode eMode, const wchar_t* sFirst, const wchar_t* sSecond, const wchar_t* sThird)
{
    CSettings settings;
    settings.world = {100, 100};
    settings.eMode = eMode;
    settings.colours = {c_crRed, c_crGrey, c_crGreen};
    settings.factors = {CFactor(sFirst), CFactor(sSecond), CFactor(sThird)};
    return settings;
}

CAtom MakeMovingAtom(float x, float speed)
{
    CAtom atom = MakeAtom(x, 50, 5);
    atom.vx = speed;
    atom.speed = speed;
    return atom;
}

} // namespace

TEST(WorldImage, StartsWithTheBackgroundEverywhere)
{
    const CWorldImage image({3, 2}, 0x563412);

    EXPECT_EQ(image.GetPixels(), (std::vector<std::uint8_t>{0x12, 0x34, 0x56, 0x12, 0x34, 0x56, 0x12, 0x34, 0x56, 0x12,
                                                            0x34, 0x56, 0x12, 0x34, 0x56, 0x12, 0x34, 0x56}));
}

TEST(WorldImage, ACircleIsFullInsideAndAbsentOutside)
{
    CWorldImage image({40, 40}, c_crBlack);
    image.FillCircle(20, 20, 10, c_crWhite);

    EXPECT_EQ(GetPixel(image, 20, 20), c_crWhite);
    EXPECT_EQ(GetPixel(image, 20, 11), c_crWhite);
    EXPECT_EQ(GetPixel(image, 28, 20), c_crWhite);
    EXPECT_EQ(GetPixel(image, 20, 8), c_crBlack);
    EXPECT_EQ(GetPixel(image, 31, 20), c_crBlack);
    EXPECT_EQ(GetPixel(image, 12, 12), c_crBlack);
}

TEST(WorldImage, TheEdgeIsSmooth)
{
    CWorldImage image({40, 40}, c_crBlack);
    image.FillCircle(20.25F, 20.5F, 10, c_crWhite);

    // The middles of these pixels lie 9.75 and 10.25 from the centre, so 3/4 and 1/4 of them are covered.
    EXPECT_NEAR(255 * 0.75, GetRed(GetPixel(image, 10, 20)), 2);
    EXPECT_NEAR(255 * 0.25, GetRed(GetPixel(image, 30, 20)), 2);
}

TEST(WorldImage, TheAreaOfACircleIsThatOfTheDisc)
{
    for (const float radius : {1.0F, 3.0F, 5.0F, 32.0F})
    {
        CWorldImage image({80, 80}, c_crBlack);
        image.FillCircle(40.3F, 39.8F, radius, c_crWhite);
        const double disc = 3.14159265358979 * static_cast<double>(radius) * static_cast<double>(radius);
        EXPECT_NEAR(disc, GetArea(image), 0.03 * disc + 0.3) << radius;
    }
}

TEST(WorldImage, ACircleHasTheSamePixelsAtEveryPlace)
{
    CWorldImage first({40, 40}, c_crBlack);
    CWorldImage second({40, 40}, c_crBlack);
    first.FillCircle(15.5F, 15.25F, 7, c_crWhite);
    second.FillCircle(20.5F, 19.25F, 7, c_crWhite);

    for (int y = 0; y < 30; ++y)
    {
        for (int x = 0; x < 30; ++x)
        {
            ASSERT_EQ(GetPixel(second, x + 5, y + 4), GetPixel(first, x, y)) << x << "," << y;
        }
    }
}

TEST(WorldImage, ACircleIsClippedToThePicture)
{
    CWorldImage image({10, 10}, c_crBlack);
    image.FillCircle(0, 5, 4, c_crWhite);
    image.FillCircle(-20, -20, 4, c_crWhite);
    image.FillCircle(30, 30, 4, c_crWhite);

    EXPECT_EQ(GetPixel(image, 0, 5), c_crWhite);
    EXPECT_EQ(GetPixel(image, 9, 5), c_crBlack);
    EXPECT_EQ(GetPixel(image, 0, 0), c_crBlack);
    EXPECT_EQ(GetPixel(image, 9, 9), c_crBlack);
}

TEST(WorldImage, LaterAtomsCoverEarlierOnes)
{
    CAtoms atoms = MakeAtoms({MakeAtom(50, 50, 5), MakeAtom(50, 50, 5), MakeAtom(50, 50, 3)});
    const CSettings settings = MakeSettings(EnumAtomColourMode::Fixed, L"1", L"1", L"");

    const CWorldImage image = DrawWorld(atoms, settings);
    EXPECT_EQ(GetPixel(image, 50, 50), c_crGreen);
    EXPECT_EQ(GetPixel(image, 53, 50), c_crGrey);
}

TEST(WorldImage, InSpeedModeTheSpeedDecidesTheColour)
{
    CAtoms atoms = MakeAtoms(
        {MakeMovingAtom(10, 0.75F), MakeMovingAtom(30, 0.76F), MakeMovingAtom(50, 1.24F), MakeMovingAtom(70, 1.25F)});
    atoms.SetVelocities({0.75F, 1.25F, 4.0F, 1.0F});

    const CWorldImage image = DrawWorld(atoms, MakeSettings(EnumAtomColourMode::Speed, L"0.75", L"", L"1.25"));
    EXPECT_EQ(GetPixel(image, 10, 50), c_crRed);
    EXPECT_EQ(GetPixel(image, 30, 50), c_crGrey);
    EXPECT_EQ(GetPixel(image, 50, 50), c_crGrey);
    EXPECT_EQ(GetPixel(image, 70, 50), c_crGreen);
    EXPECT_EQ(GetPixel(image, 90, 50), c_crBlack);
}

TEST(WorldImage, InFixedModeThePlaceInTheArrayDecidesTheColour)
{
    CAtoms atoms =
        MakeAtoms({MakeMovingAtom(10, 9), MakeMovingAtom(30, 0), MakeMovingAtom(50, 9), MakeMovingAtom(70, 0)});

    const CWorldImage image = DrawWorld(atoms, MakeSettings(EnumAtomColourMode::Fixed, L"1", L"", L"25%"));
    EXPECT_EQ(GetPixel(image, 10, 50), c_crRed);
    EXPECT_EQ(GetPixel(image, 30, 50), c_crGrey);
    EXPECT_EQ(GetPixel(image, 50, 50), c_crGrey);
    EXPECT_EQ(GetPixel(image, 70, 50), c_crGreen);
}

TEST(WorldImage, AtomsFarAwayOrAtNaNAreNotDrawn)
{
    CAtoms atoms = MakeAtoms({MakeAtom(3e38F, 50, 255), MakeAtom(50, -3e38F, 255),
                              MakeAtom(std::numeric_limits<float>::quiet_NaN(), 50, 5)});

    EXPECT_EQ(GetArea(DrawWorld(atoms, MakeSettings(EnumAtomColourMode::Fixed, L"1", L"1", L""))), 0.0);
}
