#pragma once

#include <vector>

#include "classes/core/CRect.h"
#include "classes/core/EnumDataCtrlType.h"
#include "classes/core/ScrollRequest.h"

// Where a row and its parts stand, in pixels from the left top corner of the panel's whole content (as if nothing were
// scrolled). A heading has a label over the whole width, a divider neither label nor control.
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

// Places the rows one below the other. dLabelShare (0 to 1) of the width is the labels', the rest the controls', all
// of which end at the right edge.
CPanelLayout LayOutPanel(const std::vector<EnumDataCtrlType>& types, int iWidth, double dLabelShare);

inline constexpr int c_iSettingHeight = 30; // of a setting's row, in pixels

// An arrow scrolls by a setting's row. The release of a dragged thumb scrolls as the dragging does.
inline constexpr CScrollRule c_PanelScrollRule{.iLineStep = c_iSettingHeight, .bThumbPositionScrolls = true};

// The scroll position, from 0 to iContent - iPage, that lies nearest to iWanted; 0 when everything fits.
int ClampScrollPosition(int iWanted, int iContent, int iPage);

// The scroll position nearest to iPosition at which iTop..iBottom of the content is seen; its top when the page is
// lower.
int ScrollIntoView(int iPosition, int iPage, int iContent, int iTop, int iBottom);
