#include "classes/core/CSize.h"
#include "tests/view/CFakeEllipses.h"
#include "view/AtomSpans.h"
#include "view/EllipseRect.h"
#include "view/FillShape.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace
{

constexpr Pixel c_Background = 0x102030;
constexpr CSize<int> c_size{83, 71}; // of the picture; no multiple of anything

const CAtomShapes& GetShapes()
{
    static const std::optional<CAtomShapes> shapes = [] {
        CFakeEllipses ellipses(CFakeEllipses::DrawRegular);
        return CAtomShapes::Learn(ellipses);
    }();
    return *shapes;
}

std::size_t CountPixels(const CSize<int>& size)
{
    return static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy);
}

CAtom MakeAtom(float fX, float fY, std::uint8_t uRadius, float fSpeed)
{
    CAtom atom;
    atom.x = fX;
    atom.y = fY;
    atom.radius = uRadius;
    atom.speed = fSpeed;
    return atom;
}

CAtomScene MakeScene(const std::vector<CAtom>& atoms, const CSize<int>& size = c_size)
{
    CAtomScene scene;
    scene.pAtoms = atoms.data();
    scene.count = static_cast<std::int32_t>(atoms.size());
    scene.fAverageSpeed = 1.0F;
    scene.settings[0] = {0x0000FF, 0, 0.75};
    scene.settings[1] = {0x00C000, 0, 0.0};
    scene.settings[2] = {0xA08040, 0, 1.25};
    scene.rcVisible = CRect{0, 0, size.cx, size.cy};
    return scene;
}

// The picture that DrawAtoms_Spans draws. Its pixels are an allocation of just their size, so that the sanitizers see a
// step outside.
std::vector<Pixel> Draw(const CAtomScene& scene, const CSize<int>& size = c_size)
{
    std::vector<Pixel> pixels(CountPixels(size), c_Background);
    EXPECT_TRUE(DrawAtoms_Spans(scene, GetShapes(), {pixels.data(), size.cx, size.cy}));
    return pixels;
}

// The plain form: every atom, visible or not, and every pixel of the picture.
std::vector<Pixel> DrawPlain(const CAtomScene& scene, const CSize<int>& size = c_size)
{
    std::vector<Pixel> pixels(CountPixels(size), c_Background);
    for (std::int32_t i = 0; i < scene.count; ++i)
    {
        const CAtom& atom = scene.pAtoms[i];
        const CRect rc = GetEllipseRect(atom, scene.ptWorld);
        const int iClass = ClassOfAtom(atom.speed, scene.fAverageSpeed, scene.settings);
        for (std::size_t u = 0; u < pixels.size(); ++u)
        {
            const int x = static_cast<int>(u) % size.cx;
            const int y = static_cast<int>(u) / size.cx;
            if (ContainsHalfOpen(rc, {x, y}) && CFakeEllipses::IsInside(rc, x, y))
            {
                pixels[u] = MakePixel(scene.settings[static_cast<std::size_t>(iClass)].cr);
            }
        }
    }
    return pixels;
}

} // namespace

TEST(AtomSpans, APixelHasTheBytesOfTheColourInTheOrderOfABitmap)
{
    EXPECT_EQ(MakePixel(0x112233), 0x332211U);
}

TEST(AtomSpans, EveryRadiusIsDrawnAtEveryFractionOfAPixel)
{
    std::vector<CAtom> atoms(1);
    for (int iRadius = 1; iRadius <= 32; ++iRadius)
    {
        for (const float fFraction : {0.0F, 0.25F, std::nextafter(0.5F, 0.0F), 0.5F, std::nextafter(0.5F, 1.0F), 0.75F})
        {
            for (const float fOther : {0.0F, 0.5F})
            {
                atoms[0] = MakeAtom(40.0F + fFraction, 35.0F + fOther, static_cast<std::uint8_t>(iRadius), 1.0F);
                const CAtomScene scene = MakeScene(atoms);
                ASSERT_EQ(Draw(scene), DrawPlain(scene)) << iRadius << ' ' << fFraction << ' ' << fOther;
            }
        }
    }
}

// At half a pixel left of the world's corner an atom is one pixel wider: both of its edges are rounded outwards.
TEST(AtomSpans, AnAtomAcrossTheOriginMayBeOnePixelWider)
{
    for (int iRadius = 1; iRadius <= 32; ++iRadius)
    {
        const std::vector<CAtom> atoms{MakeAtom(0.5F, 0.5F, static_cast<std::uint8_t>(iRadius), 1.0F),
                                       MakeAtom(0.5F, 40.0F, static_cast<std::uint8_t>(iRadius), 1.0F),
                                       MakeAtom(40.0F, 0.5F, static_cast<std::uint8_t>(iRadius), 1.0F)};
        ASSERT_EQ(GetEllipseRect(atoms[0], {0, 0}).GetWidth(), 2 * iRadius + 1);
        ASSERT_EQ(GetEllipseRect(atoms[0], {0, 0}).GetHeight(), 2 * iRadius + 1);
        const CAtomScene scene = MakeScene(atoms);
        ASSERT_EQ(Draw(scene), DrawPlain(scene)) << iRadius;
    }
}

// Each step of the way over the edge, on all four sides, from wholly inside to wholly outside.
TEST(AtomSpans, AnAtomIsClippedAtEachEdge)
{
    std::vector<CAtom> atoms(1);
    for (const std::uint8_t uRadius : {std::uint8_t{1}, std::uint8_t{3}, std::uint8_t{32}})
    {
        for (int i = -40; i <= 40; ++i)
        {
            const float fStep = static_cast<float>(i);
            const float fRight = static_cast<float>(c_size.cx);
            const float fBottom = static_cast<float>(c_size.cy);
            const std::vector<CPoint<float>> centres{{fStep, 35.0F}, {fRight + fStep, 35.0F},
                                                     {40.0F, fStep}, {40.0F, fBottom + fStep},
                                                     {fStep, fStep}, {fRight + fStep, fBottom - fStep}};
            for (const CPoint<float>& ptCentre : centres)
            {
                atoms[0] = MakeAtom(ptCentre.x, ptCentre.y, uRadius, 1.0F);
                const CAtomScene scene = MakeScene(atoms);
                ASSERT_EQ(Draw(scene), DrawPlain(scene)) << int{uRadius} << ' ' << ptCentre.x << ' ' << ptCentre.y;
            }
        }
    }
}

// Culling keeps such atoms away as a rule. The filling itself must not rely on it.
TEST(AtomSpans, AShapeFarOutsideIsNotFilled)
{
    const CAtomShape& shape = *GetShapes().Find(65, 65);
    const std::vector<Pixel> untouched(CountPixels(c_size), c_Background);
    std::vector<Pixel> pixels = untouched;
    constexpr int c_iFar = 1 << 30;
    for (const int x : {-c_iFar, -65, 20, c_size.cx, c_iFar})
    {
        for (const int y : {-c_iFar, -65, 20, c_size.cy, c_iFar})
        {
            if (x != 20 || y != 20)
            {
                FillShape({pixels.data(), c_size.cx, c_size.cy}, x, y, shape, 0);
            }
        }
    }
    EXPECT_EQ(pixels, untouched);
}

TEST(AtomSpans, APictureSmallerThanTheAtomIsFilledAsFarAsItGoes)
{
    for (const CSize<int> size : {CSize<int>{1, 1}, {1, 9}, {9, 1}, {3, 50}, {50, 3}, {5, 5}})
    {
        const std::vector<CAtom> atoms{MakeAtom(2.0F, 2.0F, 32, 1.0F), MakeAtom(-3.0F, 5.0F, 6, 2.0F)};
        const CAtomScene scene = MakeScene(atoms, size);
        EXPECT_EQ(Draw(scene, size), DrawPlain(scene, size)) << size.cx << " x " << size.cy;
    }
}

TEST(AtomSpans, LaterAtomsCoverEarlierOnesInAnyMixtureOfRadiiAndClasses)
{
    std::mt19937_64 random(21);
    std::uniform_real_distribution<float> anywhere(-40.0F, 130.0F);
    std::uniform_real_distribution<float> speed(0.0F, 2.0F);
    for (int iScene = 0; iScene < 60; ++iScene)
    {
        std::vector<CAtom> atoms;
        for (int i = 0; i < 120; ++i)
        {
            const auto uRadius = static_cast<std::uint8_t>(1 + random() % (iScene % 2 == 0 ? 5 : 32));
            atoms.push_back(MakeAtom(anywhere(random), anywhere(random), uRadius, speed(random)));
        }
        CAtomScene scene = MakeScene(atoms);
        scene.ptWorld = {iScene - 30, 15 - iScene};
        ASSERT_EQ(Draw(scene), DrawPlain(scene)) << iScene;
    }
}

TEST(AtomSpans, APositionThatIsNotFiniteDrawsNothing)
{
    const float fInfinity = std::numeric_limits<float>::infinity();
    const std::vector<CAtom> atoms{MakeAtom(std::nanf(""), 20.0F, 5, 1.0F), MakeAtom(20.0F, fInfinity, 5, 1.0F),
                                   MakeAtom(-fInfinity, 20.0F, 5, 1.0F), MakeAtom(1e30F, -1e30F, 5, 1.0F)};
    EXPECT_EQ(Draw(MakeScene(atoms)), std::vector<Pixel>(CountPixels(c_size), c_Background));
}

TEST(AtomSpans, AnAtomOfNoLegalRadiusIsReported)
{
    std::vector<Pixel> pixels(CountPixels(c_size), c_Background);
    const CPixelArea area{pixels.data(), c_size.cx, c_size.cy};
    for (const std::uint8_t uRadius : {std::uint8_t{0}, std::uint8_t{33}, std::uint8_t{255}})
    {
        const std::vector<CAtom> atoms{MakeAtom(20.0F, 20.0F, 5, 1.0F), MakeAtom(20.0F, 20.0F, uRadius, 1.0F),
                                       MakeAtom(20.0F, 20.0F, 5, 1.0F)};
        EXPECT_FALSE(DrawAtoms_Spans(MakeScene(atoms), GetShapes(), area)) << int{uRadius};
    }
}
