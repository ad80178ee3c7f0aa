#include "classes/core/Dbl.h"
#include "tests/fuzz/CFuzzInput.h"
#include "tests/fuzz/FuzzTarget.h"
#include "view/AtomScene.h"
#include "view/EllipseRect.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace
{

constexpr std::size_t c_uMostAtoms = 600;    // more than one block of the search for visible ones
constexpr float c_fMostPixels = 1'000'000.F; // worlds and views up to this size are drawn to the pixel

// The rule in its plain form.
int GetPlainClass(float fSpeed, float fAverage, const CColourSettings& settings)
{
    const double dSpeed = static_cast<double>(fSpeed);
    const double dAverage = static_cast<double>(fAverage);
    if (dAverage * settings[0].dFactor >= dSpeed)
    {
        return 0;
    }
    return dSpeed >= dAverage * settings[2].dFactor ? 2 : 1;
}

double Truncate(double dFactor)
{
    constexpr double c_dMost = 2147483647.0;
    return std::isnan(dFactor) ? 0.0 : std::clamp(std::trunc(dFactor), -c_dMost - 1.0, c_dMost);
}

// The last class counts where it reaches into the first.
int GetPlainRun(std::int32_t index, std::int32_t count, const CColourSettings& settings)
{
    const double dFirst = std::min<double>(Truncate(settings[0].dFactor), count);
    const double dBoth = std::min<double>(Truncate(settings[1].dFactor) + dFirst, count);
    return index >= dBoth ? 2 : (index < dFirst ? 0 : 1);
}

std::vector<CAtom> TakeAtoms(CFuzzInput& input)
{
    constexpr int c_iMostRadius = 255;
    std::vector<CAtom> atoms;
    while (!input.IsAtEnd() && atoms.size() < c_uMostAtoms)
    {
        CAtom atom{};
        atom.x = static_cast<float>(input.TakeDouble());
        atom.y = static_cast<float>(input.TakeDouble());
        atom.speed = static_cast<float>(input.TakeDouble());
        atom.radius = static_cast<std::uint8_t>(input.TakeInt(0, c_iMostRadius));
        // An atom of the input has many copies, so that short inputs reach the second block too.
        for (int iCopies = input.TakeInt(1, static_cast<int>(c_uMostAtoms)); iCopies > 0; --iCopies)
        {
            atoms.push_back(atom);
        }
    }
    atoms.resize(std::min(atoms.size(), c_uMostAtoms));
    return atoms;
}

bool IsNear(float fPosition)
{
    return std::fabs(fPosition) <= c_fMostPixels;
}

// If the atom's drawing touches a pixel of the visible rectangle, the atom must be drawn.
void CheckVisibility(const CAtomScene& scene, const CAtom& atom, bool bDrawn)
{
    const CRect rc = GetEllipseRect(atom, scene.ptWorld);
    if (!std::isfinite(atom.x) || !std::isfinite(atom.y))
    {
        Require(!bDrawn, "an atom without a finite position is drawn");
        return;
    }
    if (IsNear(atom.x) && IsNear(atom.y))
    {
        Require(bDrawn || Intersect(rc, scene.rcVisible).IsEmpty(), "a visible atom is not drawn");
        const float fX = static_cast<float>(scene.ptWorld.x) + atom.x;
        const float fRadius = static_cast<float>(atom.radius);
        Require(rc.left == Dbl_Round(static_cast<double>(fX - fRadius), 0) &&
                    rc.right == Dbl_Round(static_cast<double>(fX + fRadius), 0),
                "an ellipse is rounded differently");
    }
}

template<class Draw, class Expected>
void CheckDrawing(const CAtomScene& scene, Draw&& drawAtoms, Expected&& getClass)
{
    std::int32_t next = 0;
    const auto skipTo = [&](std::int32_t index) {
        for (; next < index; ++next)
        {
            CheckVisibility(scene, scene.pAtoms[next], false);
        }
    };
    drawAtoms(scene, [&](const CAtom& atom, int iClass) {
        const auto index = static_cast<std::int32_t>(&atom - scene.pAtoms);
        Require(index >= next && index < scene.count, "atoms are drawn out of order");
        skipTo(index);
        CheckVisibility(scene, atom, true);
        ++next;
        Require(iClass == getClass(index), "an atom has the wrong class");
    });
    skipTo(scene.count);
}

} // namespace

// The input is numbers: the three factors, the average speed, the visible rectangle, the world's corner, and for each
// atom its position, speed, radius and number of copies.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    constexpr int c_iMost = static_cast<int>(c_fMostPixels);
    CFuzzInput input(pBytes, uCount);
    CAtomScene scene;
    for (AtomColourSetting& setting : scene.settings)
    {
        setting.dFactor = input.TakeDouble();
    }
    scene.fAverageSpeed = static_cast<float>(input.TakeDouble());
    for (int* const pEdge : {&scene.rcVisible.left, &scene.rcVisible.top, &scene.rcVisible.right,
                             &scene.rcVisible.bottom, &scene.ptWorld.x, &scene.ptWorld.y})
    {
        *pEdge = input.TakeInt(-c_iMost, c_iMost);
    }
    const std::vector<CAtom> atoms = TakeAtoms(input);
    scene.pAtoms = atoms.data();
    scene.count = static_cast<std::int32_t>(atoms.size());

    CheckDrawing(
        scene, [](const CAtomScene& s, auto&& draw) { DrawAtoms_Speed(s, draw); },
        [&](std::int32_t index) {
            return GetPlainClass(atoms[static_cast<std::size_t>(index)].speed, scene.fAverageSpeed, scene.settings);
        });
    CheckDrawing(
        scene, [](const CAtomScene& s, auto&& draw) { DrawAtoms_Fixed(s, draw); },
        [&](std::int32_t index) { return GetPlainRun(index, scene.count, scene.settings); });
    return 0;
}
