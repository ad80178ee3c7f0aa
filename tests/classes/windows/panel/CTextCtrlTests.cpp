#include "classes/windows/panel/CTextCtrl.h"

#include "classes/windows/system/Handles.h"

#include <gtest/gtest.h>

TEST(TextCtrl, ARightAlignedTextMayExtendToTheLeftOfItsRectangle)
{
    CTextCtrl text;
    const CMemoryDc dc(nullptr);
    const RECT rc{950, 600, 1000, 665};
    text.SetDrawingRect(&rc);
    EXPECT_FALSE(text.Draw(dc.Get())) << "no text yet";
    text.SetText(L"v2.0.0     a text much wider than fifty pixels");
    text.SetTextFormat(3, 5, 1, true);
    const RECT rcText = text.GetTextRect(dc.Get());
    EXPECT_LT(rcText.left, rc.left);
    EXPECT_LE(rcText.right, rc.right);
    EXPECT_GE(rcText.top, rc.top);
    EXPECT_LE(rcText.bottom, rc.bottom);
    EXPECT_NEAR(rcText.top + rcText.bottom, rc.top + rc.bottom, 1);
    EXPECT_TRUE(text.Draw(dc.Get()));
    EXPECT_FALSE(text.Draw(nullptr));

    text.SetTextFormat(1, 4, 1, false);
    const RECT rcCut = text.GetTextRect(dc.Get());
    EXPECT_GE(rcCut.left, rc.left);
    EXPECT_LE(rcCut.right, rc.right);
    EXPECT_EQ(rcCut.top, rc.top);
    text.SetDrawingRect(nullptr);
    EXPECT_FALSE(text.Draw(dc.Get()));
}
