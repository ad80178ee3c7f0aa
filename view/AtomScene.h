#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CRect.h"
#include "simulation/CAtom.h"
#include "simulation/EnumAtomColourMode.h"
#include "view/ColourRules.h"
#include "view/VisibleAtoms.h"

#include <cstdint>

// All data that decides which atoms a frame shows, where and in which class.
struct CAtomScene
{
    const CAtom* pAtoms{};
    std::int32_t count{};
    float fAverageSpeed{}; // of the whole set, world units per iteration
    EnumAtomColourMode eMode{EnumAtomColourMode::Speed};
    CColourSettings settings{};
    CRect rcVisible{};     // visible pixels, in view coordinates
    CPoint<int> ptWorld{}; // left top corner of the world, in view coordinates; carries the scroll position
};

// Calls draw(atom, class) for every visible atom in array order; the speed decides the class.
template<class Draw>
void DrawAtoms_Speed(const CAtomScene& scene, Draw&& draw)
{
    const CSpeedLimits limits = GetSpeedLimits(scene.fAverageSpeed, scene.settings);
    ForEachVisibleAtom(scene.pAtoms, 0, scene.count, CVisibleArea(scene.rcVisible, scene.ptWorld),
                       [&draw, limits](const CAtom& atom) { draw(atom, ClassOfSpeed(atom.speed, limits)); });
}

// Calls draw(atom, class) for every visible atom in array order; the place in the array decides the class.
template<class Draw>
void DrawAtoms_Fixed(const CAtomScene& scene, Draw&& draw)
{
    const CFixedRuns runs = GetFixedRuns(scene.settings, scene.count);
    const CVisibleArea area(scene.rcVisible, scene.ptWorld);
    ForEachVisibleAtom(scene.pAtoms, 0, runs.a, area, [&draw](const CAtom& atom) { draw(atom, 0); });
    ForEachVisibleAtom(scene.pAtoms, runs.a, runs.b, area, [&draw](const CAtom& atom) { draw(atom, 1); });
    ForEachVisibleAtom(scene.pAtoms, runs.b, runs.count, area, [&draw](const CAtom& atom) { draw(atom, 2); });
}
