#include "tests/view/windows/PlainGdiDrawing.h"

#include "classes/core/Dbl.h"
#include "classes/windows/system/Handles.h"

#include <cstddef>

void DrawAtoms_Plain(HDC hDc, const CAtomScene& scene)
{
    const CSelectObject pen(hDc, GetStockObject(DC_PEN));
    const CSelectObject brush(hDc, GetStockObject(DC_BRUSH));
    const auto round = [](float fPosition) { return static_cast<int>(Dbl_Round(static_cast<double>(fPosition), 0)); };
    for (std::int32_t i = 0; i < scene.count; ++i)
    {
        const CAtom& atom = scene.pAtoms[i];
        const int iClass = ClassOfAtom(atom.speed, scene.fAverageSpeed, scene.settings);
        SetDCPenColor(hDc, scene.settings[static_cast<std::size_t>(iClass)].cr);
        SetDCBrushColor(hDc, scene.settings[static_cast<std::size_t>(iClass)].cr);
        const float fX = static_cast<float>(scene.ptWorld.x) + atom.x;
        const float fY = static_cast<float>(scene.ptWorld.y) + atom.y;
        const float fRadius = static_cast<float>(atom.radius);
        Ellipse(hDc, round(fX - fRadius), round(fY - fRadius), round(fX + fRadius), round(fY + fRadius));
    }
}
