#include "view/AtomSpans.h"

#include "view/EllipseRect.h"
#include "view/FillShape.h"

#include <algorithm>
#include <array>
#include <cstddef>

bool DrawAtoms_Spans(const CAtomScene& scene, const CAtomShapes& shapes, const CPixelArea& area)
{
    std::array<Pixel, c_uColourClassCount> pixels{};
    std::transform(scene.settings.begin(), scene.settings.end(), pixels.begin(),
                   [](const AtomColourSetting& setting) { return MakePixel(setting.cr); });
    bool bAllDrawn = true;
    DrawAtoms_Speed(scene, [&](const CAtom& atom, int iClass) {
        const CRect rc = GetEllipseRect(atom, scene.ptWorld);
        const CAtomShape* const pShape = shapes.Find(rc.GetWidth(), rc.GetHeight());
        if (pShape == nullptr)
        {
            bAllDrawn = false;
            return;
        }
        FillShape(area, rc.left, rc.top, *pShape, pixels[static_cast<std::size_t>(iClass)]);
    });
    return bAllDrawn;
}
