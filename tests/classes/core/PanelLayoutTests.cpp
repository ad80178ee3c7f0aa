#include "classes/core/PanelLayout.h"

#include <gtest/gtest.h>

namespace
{
const std::vector<EnumDataCtrlType> c_types{EnumDataCtrlType::Heading, EnumDataCtrlType::NumberEntry,
                                            EnumDataCtrlType::Divider, EnumDataCtrlType::ColourButton};
} // namespace

TEST(PanelLayout, RowsFollowOneAnotherWithoutGapOrOverlap)
{
    const CPanelLayout layout = LayOutPanel(c_types, 240, 0.6);
    ASSERT_EQ(layout.rows.size(), c_types.size());
    for (std::size_t i = 1; i < layout.rows.size(); ++i)
    {
        EXPECT_EQ(layout.rows[i].rcRow.top, layout.rows[i - 1].rcRow.bottom);
    }
    EXPECT_GE(layout.iHeight, layout.rows.back().rcRow.bottom);
}

TEST(PanelLayout, ControlsBeginAtTheLabelsShareAndEndAtTheRightEdge)
{
    const CPanelLayout layout = LayOutPanel(c_types, 240, 0.6);
    for (const std::size_t i : {std::size_t{1}, std::size_t{3}})
    {
        EXPECT_EQ(layout.rows[i].rcControl.left, 144);
        EXPECT_EQ(layout.rows[i].rcControl.right, 240);
        EXPECT_LE(layout.rows[i].rcLabel.right, 144);
    }
    EXPECT_EQ(layout.rows[0].rcLabel.right, 240) << "a heading has the whole width";
    EXPECT_TRUE(layout.rows[2].rcLabel.IsEmpty());
    EXPECT_TRUE(layout.rows[2].rcControl.IsEmpty());
}

TEST(PanelLayout, ZeroWidthAndOddSharesNeverGiveAnInvertedRectangle)
{
    for (const int iWidth : {0, 5, 20})
    {
        for (const double dShare : {-1.0, 0.0, 0.6, 1.0, 7.0})
        {
            for (const CPanelRow& row : LayOutPanel(c_types, iWidth, dShare).rows)
            {
                EXPECT_LE(row.rcLabel.left, row.rcLabel.right);
                EXPECT_LE(row.rcControl.left, row.rcControl.right);
            }
        }
    }
}

TEST(PanelLayout, ScrollingStaysWithinTheContent)
{
    EXPECT_EQ(ClampScrollPosition(-5, 500, 200), 0);
    EXPECT_EQ(ClampScrollPosition(250, 500, 200), 250);
    EXPECT_EQ(ClampScrollPosition(400, 500, 200), 300);
    EXPECT_EQ(ClampScrollPosition(50, 100, 200), 0) << "everything fits";
}

TEST(PanelLayout, ARowIsScrolledIntoViewByAsLittleAsPossible)
{
    EXPECT_EQ(ScrollIntoView(100, 200, 500, 150, 180), 100) << "already in view";
    EXPECT_EQ(ScrollIntoView(100, 200, 500, 290, 320), 120);
    EXPECT_EQ(ScrollIntoView(100, 200, 500, 80, 110), 80);
    EXPECT_EQ(ScrollIntoView(100, 20, 500, 150, 180), 150) << "shows the row's top if the page is lower than the row";
}

TEST(PanelScrollRule, AnArrowScrollsByTheRowOfASetting)
{
    const CPanelLayout layout = LayOutPanel({EnumDataCtrlType::NumberEntry}, 240, 0.6);
    ASSERT_EQ(layout.rows.size(), 1u);
    EXPECT_EQ(c_PanelScrollRule.iLineStep, layout.rows[0].rcRow.GetHeight());
}

TEST(PanelScrollRule, TheReleaseOfTheThumbScrollsAsItsDraggingDoes)
{
    const CScrollBarState bar{0, 478, 400, 5, 61};
    for (const EnumScrollRequest eRequest : {EnumScrollRequest::ThumbTrack, EnumScrollRequest::ThumbPosition})
    {
        EXPECT_EQ(GetScrolledPosition(bar, static_cast<unsigned>(eRequest), c_PanelScrollRule), 61);
    }
}
