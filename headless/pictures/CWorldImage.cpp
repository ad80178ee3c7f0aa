#include "headless/pictures/CWorldImage.h"

#include "settings/CSettings.h"
#include "simulation/CAtoms.h"
#include "view/AtomScene.h"
#include "view/ColourRules.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr std::size_t c_uChannels = 3;
constexpr float c_fHalfPixel = 0.5F;
constexpr int c_iFullCoverage = 256; // coverage as an integer, so that blending gives the same bits everywhere
constexpr int c_iCoverageShiftBits = 8;
constexpr int c_iRounding = c_iFullCoverage / 2;

void Blend(std::uint8_t& uChannel, std::uint8_t uColour, int coverage)
{
    const int blended = uChannel * (c_iFullCoverage - coverage) + uColour * coverage + c_iRounding;
    uChannel = static_cast<std::uint8_t>(blended >> c_iCoverageShiftBits);
}

// The first and the last pixel whose middle is nearer to the centre than reach, clamped to the picture.
int FirstPixel(float centre, float reach)
{
    return std::max(0, static_cast<int>(std::floor(centre - reach)));
}

int LastPixel(float centre, float reach, int count)
{
    return std::min(count - 1, static_cast<int>(std::floor(centre + reach)));
}

} // namespace

CWorldImage::CWorldImage(const CSize<int>& size, ColourRef background)
    : m_Size(size), m_Pixels(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy) * c_uChannels)
{
    for (std::size_t u = 0; u < m_Pixels.size(); u += c_uChannels)
    {
        m_Pixels[u] = GetRed(background);
        m_Pixels[u + 1] = GetGreen(background);
        m_Pixels[u + 2] = GetBlue(background);
    }
}

std::size_t CWorldImage::GetOffset(int x, int y) const
{
    return (static_cast<std::size_t>(y) * static_cast<std::size_t>(m_Size.cx) + static_cast<std::size_t>(x)) *
           c_uChannels;
}

void CWorldImage::FillCircle(float x, float y, float radius, ColourRef colour)
{
    const float reach = radius + c_fHalfPixel;
    const int last = LastPixel(y, reach, m_Size.cy);
    for (int row = FirstPixel(y, reach); row <= last; ++row)
    {
        FillRow(row, x, y, radius, colour);
    }
}

void CWorldImage::FillRow(int row, float x, float y, float radius, ColourRef colour)
{
    const float reach = radius + c_fHalfPixel;
    const float inner = std::max(radius - c_fHalfPixel, 0.0F);
    const float dy = static_cast<float>(row) + c_fHalfPixel - y;
    const int last = LastPixel(x, reach, m_Size.cx);
    for (int column = FirstPixel(x, reach); column <= last; ++column)
    {
        const float dx = static_cast<float>(column) + c_fHalfPixel - x;
        const float squared = dx * dx + dy * dy;
        // The many pixels wholly inside or outside need no square root.
        if (squared >= reach * reach)
        {
            continue;
        }
        const float coverage = squared <= inner * inner ? 1.0F : std::min(reach - std::sqrt(squared), 1.0F);
        const int whole = static_cast<int>(coverage * static_cast<float>(c_iFullCoverage));
        std::uint8_t* const pPixel = &m_Pixels[GetOffset(column, row)];
        Blend(pPixel[0], GetRed(colour), whole);
        Blend(pPixel[1], GetGreen(colour), whole);
        Blend(pPixel[2], GetBlue(colour), whole);
    }
}

CWorldImage DrawWorld(const CAtoms& atoms, const CSettings& settings)
{
    CWorldImage image(settings.world, settings.background);
    CAtomScene scene;
    scene.pAtoms = atoms.GetAtoms();
    scene.count = atoms.GetCount();
    scene.fAverageSpeed = atoms.GetAvgVelocity();
    scene.eMode = settings.eMode;
    scene.rcVisible = {0, 0, settings.world.cx, settings.world.cy};
    for (std::size_t u = 0; u < settings.colours.size(); ++u)
    {
        scene.settings[u].cr = settings.colours[u];
    }
    InterpretFactors(settings.eMode, settings.factors, atoms.GetCount(), scene.settings);
    const auto draw = [&image, &settings](const CAtom& atom, int iClass) {
        image.FillCircle(atom.x, atom.y, atom.radius, settings.colours[static_cast<std::size_t>(iClass)]);
    };
    if (settings.eMode == EnumAtomColourMode::Speed)
    {
        DrawAtoms_Speed(scene, draw);
    }
    else
    {
        DrawAtoms_Fixed(scene, draw);
    }
    return image;
}
