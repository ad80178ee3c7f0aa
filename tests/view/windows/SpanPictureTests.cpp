#include "classes/windows/drawing/CPictureBits.h"
#include "classes/windows/system/Handles.h"
#include "tests/view/windows/PlainGdiDrawing.h"
#include "view/AtomSpans.h"
#include "view/CEllipseSource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <vector>

// The atoms that the painter fills itself, against those that the system draws, bit by bit.

namespace
{

constexpr CSize<int> c_size{90, 80};
constexpr Pixel c_Background = 0x203040;

class SpanPicture : public testing::Test
{
protected:
    SpanPicture() : m_dc(nullptr), m_pSpans(MakeBits()), m_pPlain(MakeBits())
    {
        CEllipseSource source;
        m_shapes = CAtomShapes::Learn(source);
    }

    void SetUp() override { ASSERT_TRUE(m_shapes.has_value()) << "the system's shapes are not regular"; }

    static std::unique_ptr<CPictureBits> MakeBits() { return CPictureBits::Create(c_size.cx, c_size.cy); }

    static std::span<Pixel> GetPixels(CPictureBits& bits)
    {
        return {bits.GetPixels(), static_cast<std::size_t>(c_size.cx) * static_cast<std::size_t>(c_size.cy)};
    }

    // Whether both ways of drawing give the same pixels.
    bool IsSame(const std::vector<CAtom>& atoms, const CPoint<int>& ptWorld = {0, 0})
    {
        CAtomScene scene;
        scene.pAtoms = atoms.data();
        scene.count = static_cast<std::int32_t>(atoms.size());
        scene.fAverageSpeed = 1.0F;
        scene.settings = {AtomColourSetting{0x0000FF, 0, 0.75}, AtomColourSetting{0x123456, 0, 0},
                          AtomColourSetting{0xFFFFFF, 0, 1.25}};
        scene.rcVisible = {0, 0, c_size.cx, c_size.cy};
        scene.ptWorld = ptWorld;

        const std::span<Pixel> spans = GetPixels(*m_pSpans);
        std::fill(spans.begin(), spans.end(), c_Background);
        EXPECT_TRUE(DrawAtoms_Spans(scene, *m_shapes, {spans.data(), c_size.cx, c_size.cy}));

        const std::span<Pixel> plain = GetPixels(*m_pPlain);
        std::fill(plain.begin(), plain.end(), c_Background);
        const CSelectObject selected(m_dc.Get(), m_pPlain->GetBitmap());
        DrawAtoms_Plain(m_dc.Get(), scene);
        GdiFlush();
        return std::equal(spans.begin(), spans.end(), plain.begin());
    }

    static CAtom MakeAtom(float fX, float fY, int iRadius, float fSpeed = 1.0F)
    {
        CAtom atom;
        atom.x = fX;
        atom.y = fY;
        atom.radius = static_cast<std::uint8_t>(iRadius);
        atom.speed = fSpeed;
        return atom;
    }

private:
    CMemoryDc m_dc;
    std::optional<CAtomShapes> m_shapes;
    std::unique_ptr<CPictureBits> m_pSpans;
    std::unique_ptr<CPictureBits> m_pPlain;
};

const std::vector<float> c_fractions{
    0.0F, 0.125F, std::nextafter(0.5F, 0.0F), 0.5F, std::nextafter(0.5F, 1.0F), 0.875F, std::nextafter(1.0F, 0.0F)};

} // namespace

TEST_F(SpanPicture, EveryRadiusIsTheSystemsAtEveryFractionOfAPixel)
{
    for (int iRadius = 1; iRadius <= 32; ++iRadius)
    {
        for (const float fX : c_fractions)
        {
            for (const float fY : c_fractions)
            {
                ASSERT_TRUE(IsSame({MakeAtom(45.0F + fX, 40.0F + fY, iRadius)})) << iRadius << ' ' << fX << ' ' << fY;
                // Where the sign changes, both edges are rounded away from zero.
                ASSERT_TRUE(IsSame({MakeAtom(fX, fY, iRadius)})) << iRadius << ' ' << fX << ' ' << fY;
                ASSERT_TRUE(IsSame({MakeAtom(-fX, -fY, iRadius)})) << iRadius << ' ' << -fX << ' ' << -fY;
            }
        }
    }
}

TEST_F(SpanPicture, EveryRadiusIsTheSystemsAcrossEachEdgeAndOutside)
{
    for (int iRadius = 1; iRadius <= 32; ++iRadius)
    {
        const int iFar = 2 * iRadius + 3;
        for (int i = -iFar; i <= iFar; ++i)
        {
            const float fStep = static_cast<float>(i) + 0.25F;
            const float fRight = static_cast<float>(c_size.cx) + fStep;
            const float fBottom = static_cast<float>(c_size.cy) + fStep;
            const std::vector<CPoint<float>> centres{{fStep, 40.0F},   {45.0F, fStep}, {fRight, 40.0F},
                                                     {45.0F, fBottom}, {fStep, fStep}, {fRight, fBottom}};
            for (const CPoint<float>& pt : centres)
            {
                ASSERT_TRUE(IsSame({MakeAtom(pt.x, pt.y, iRadius)})) << iRadius << ' ' << pt.x << ' ' << pt.y;
            }
        }
    }
}

TEST_F(SpanPicture, AMixtureOfAtomsIsTheSystemsInAnyPartOfAWorld)
{
    std::mt19937_64 random(31);
    std::uniform_real_distribution<float> anywhere(0.0F, 9999.0F);
    std::uniform_real_distribution<float> around(-70.0F, 160.0F);
    std::uniform_real_distribution<float> speed(0.0F, 2.0F);
    for (int iScene = 0; iScene < 100; ++iScene)
    {
        const CPoint<int> ptWorld{-static_cast<int>(anywhere(random)), 30 - static_cast<int>(anywhere(random))};
        std::vector<CAtom> atoms;
        for (int i = 0; i < 400; ++i)
        {
            const int iRadius = 1 + static_cast<int>(random() % (iScene % 2 == 0 ? 6U : 32U));
            atoms.push_back(MakeAtom(around(random) - static_cast<float>(ptWorld.x),
                                     around(random) - static_cast<float>(ptWorld.y), iRadius, speed(random)));
        }
        atoms.push_back(MakeAtom(anywhere(random), 1e6F, 32));
        atoms.push_back(MakeAtom(-1e9F, anywhere(random), 32));
        ASSERT_TRUE(IsSame(atoms, ptWorld)) << iScene;
    }
}
