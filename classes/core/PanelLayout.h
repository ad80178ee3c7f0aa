#pragma once

#include <vector>

#include "classes/core/CRect.h"
#include "classes/core/EnumDataCtrlType.h"
#include "classes/core/ScrollRequest.h"

// The rectangles of a row and its parts, in pixels from the top left corner of the panel's unscrolled content. A
// heading has a label over the whole width, a divider neither label nor control.
struct CPanelRow
{
    CRect rcRow;
    CRect rcLabel;
    CRect rcControl;
};

struct CPanelLayout
{
    std::vector<CPanelRow> rows;
    int iHeight = 0; // of the whole content
};

// Places the rows one below the other. The labels get dLabelShare (0 to 1) of the width, the controls the rest; all
// controls end at the right edge.
CPanelLayout LayOutPanel(const std::vector<EnumDataCtrlType>& types, int iWidth, double dLabelShare);

inline constexpr int c_iSettingHeight = 30; // of a setting's row, in pixels

// An arrow scrolls by a setting's row. The release of a dragged thumb scrolls as the dragging does.
inline constexpr CScrollRule c_PanelScrollRule{.iLineStep = c_iSettingHeight, .bThumbPositionScrolls = true};

// iWanted clamped to the scroll range 0 to iContent - iPage; 0 if everything fits.
int ClampScrollPosition(int iWanted, int iContent, int iPage);

// The scroll position nearest to iPosition that shows iTop..iBottom of the content; iTop if the page is too low for all
// of it.
int ScrollIntoView(int iPosition, int iPage, int iContent, int iTop, int iBottom);
