#include "tests/windows/CGdiFrameTest.h"

// Whole frames of the GDI painter, as they reach the window, against the plain form in which the system draws every
// atom. Where the painter cannot fill the atoms itself, its frames must be those of the plain form too.

namespace
{
using GdiFrame = CGdiFrameTest;
} // namespace

TEST_F(GdiFrame, HasThePixelsOfThePlainFormInEveryModeOfTheBackdrop)
{
    for (const EnumPicDrawMode eMode :
         {EnumPicDrawMode::Plain, EnumPicDrawMode::Fitted, EnumPicDrawMode::Stretched, EnumPicDrawMode::Tiled})
    {
        CFrame frame = MakeFrame();
        frame.eBackdropMode = eMode;
        ExpectPlainFrame(frame);
    }
    for (int iScroll = 0; iScroll < 20; ++iScroll)
    {
        CFrame frame = MakeFrame();
        frame.scene.ptWorld = {20 - 9 * iScroll, 15 - 11 * iScroll};
        ExpectPlainFrame(frame);
    }
}

TEST_F(GdiFrame, TheSystemDrawsNoAtomOnceItsShapesAreKnown)
{
    ExpectPlainFrame(MakeFrame());
    EXPECT_EQ(m_pWatch->GetEllipses(), 6 * 128);
    ExpectPlainFrame(MakeFrame());
    Paint(MakeFrame());
    EXPECT_EQ(m_pWatch->GetEllipses(), 0);
    m_painter.BeginRun();
    Paint(MakeFrame());
    EXPECT_EQ(m_pWatch->GetEllipses(), 0) << "a new run has forgotten the shapes";
}

// Drawing may still be under way in GDI's batch when the atoms are filled in.
TEST_F(GdiFrame, TheBackgroundIsFinishedBeforeTheAtomsAreFilled)
{
    LearnShapes();
    EXPECT_EQ(m_pWatch->GetLastCalls(), "fgb");
}

TEST_F(GdiFrame, FollowsEveryChangeOfItsSize)
{
    LearnShapes();
    for (const SIZE size : {SIZE{300, 200}, SIZE{299, 200}, SIZE{299, 201}, SIZE{10, 10}, SIZE{1, 1}, SIZE{400, 300}})
    {
        ExpectPlainFrame(MakeFrame(size));
        Paint(MakeFrame(size));
        EXPECT_EQ(m_pWatch->GetEllipses(), 0) << size.cx << " x " << size.cy;
    }
}

TEST_F(GdiFrame, FixedModeShowsNoAtomAndAsksForNoShape)
{
    CFrame frame = MakeFrame();
    frame.scene.eMode = EnumAtomColourMode::Fixed;
    CFrame empty = MakeFrame();
    empty.scene.count = 0;
    const CPixels plain = DrawPlain(empty);
    EXPECT_TRUE(Paint(frame) == plain);
    EXPECT_TRUE(Paint(empty) == plain);
    EXPECT_EQ(m_pWatch->GetEllipses(), 0);
}

TEST_F(GdiFrame, AnAtomLargerThanAnyLegalOneIsDrawnByTheSystem)
{
    LearnShapes();
    m_atoms[7].radius = 40;
    m_atoms[7].x = 100.0F;
    m_atoms[7].y = 90.0F;
    ExpectPlainFrame(MakeFrame());
    Paint(MakeFrame());
    EXPECT_TRUE(HasSystemDrawn());
    m_atoms[7].radius = 32;
    Paint(MakeFrame());
    EXPECT_EQ(m_pWatch->GetEllipses(), 0);
}

TEST_F(GdiFrame, ASystemWhoseShapesDependOnThePositionDrawsThemItself)
{
    SetEllipses(EnumEllipses::DependOnPosition);
    ExpectPlainFrame(MakeFrame());
    ExpectPlainFrame(MakeFrame({310, 200}));
    Paint(MakeFrame());
    EXPECT_TRUE(HasSystemDrawn());
    EXPECT_LE(m_pWatch->GetEllipses(), static_cast<int>(m_atoms.size())) << "the shapes are examined in every frame";
}

TEST_F(GdiFrame, ASystemWhosePenAndBrushDifferDrawsThemItself)
{
    SetEllipses(EnumEllipses::TwoColours);
    ExpectPlainFrame(MakeFrame());
    ExpectPlainFrame(MakeFrame());
    Paint(MakeFrame());
    EXPECT_TRUE(HasSystemDrawn());
}

TEST_F(GdiFrame, TheStartOfARunExaminesRefusedShapesAgain)
{
    SetEllipses(EnumEllipses::DependOnPosition);
    Paint(MakeFrame());
    SetEllipses(EnumEllipses::Real);
    Paint(MakeFrame());
    EXPECT_TRUE(HasSystemDrawn());
    m_painter.BeginRun();
    LearnShapes();
}
