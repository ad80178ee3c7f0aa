#include "classes/windows/drawing/CPicture.h"

#include "classes/windows/system/Handles.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace
{
constexpr int c_iTile = 4;
constexpr COLORREF c_crGround = RGB(1, 2, 3);

// A tile of 4 x 4 pixels, each with a different colour.
CPicture MakeTile()
{
    std::vector<std::uint32_t> pixels;
    for (std::uint32_t y = 0; y < c_iTile; ++y)
    {
        for (std::uint32_t x = 0; x < c_iTile; ++x)
        {
            pixels.push_back((x * 50 << 16) | (y * 60 << 8) | 7);
        }
    }
    CPicture picture;
    picture.CreateFromPixels(c_iTile, c_iTile, pixels.data());
    return picture;
}

COLORREF TileColour(int x, int y)
{
    const int iColumn = ((x % c_iTile) + c_iTile) % c_iTile;
    const int iRow = ((y % c_iTile) + c_iTile) % c_iTile;
    return RGB(iColumn * 50, iRow * 60, 7);
}

// A bitmap to draw on: 40 x 30 pixels of one colour.
class CCanvas
{
public:
    static constexpr int c_iWidth = 40;
    static constexpr int c_iHeight = 30;

    CCanvas() : m_Dc(nullptr)
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = c_iWidth;
        info.bmiHeader.biHeight = -c_iHeight;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* pPixels = nullptr;
        m_Bitmap.Reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pPixels, nullptr, 0));
        m_hOld = SelectObject(m_Dc.Get(), m_Bitmap.Get());
        const CBrushHandle brush(CreateSolidBrush(c_crGround));
        const RECT rc{0, 0, c_iWidth, c_iHeight};
        FillRect(m_Dc.Get(), &rc, brush.Get());
    }
    ~CCanvas() { SelectObject(m_Dc.Get(), m_hOld); }

    HDC Get() const { return m_Dc.Get(); }
    COLORREF At(int x, int y) const { return GetPixel(m_Dc.Get(), x, y); }

private:
    CBitmapHandle m_Bitmap;
    CMemoryDc m_Dc;
    HGDIOBJ m_hOld = nullptr;
};
} // namespace

TEST(Picture, TilesBeginAtTheTopLeftCornerOfTheDrawingRectangleAndEndAtItsEdges)
{
    CCanvas canvas;
    CPicture picture = MakeTile();
    const RECT rc{3, 5, 20, 19};
    picture.SetDrawingRect(&rc);
    ASSERT_TRUE(picture.DrawTiled(canvas.Get(), false));
    for (int y = 0; y < CCanvas::c_iHeight; ++y)
    {
        for (int x = 0; x < CCanvas::c_iWidth; ++x)
        {
            const bool bInside = x >= rc.left && x < rc.right && y >= rc.top && y < rc.bottom;
            EXPECT_EQ(canvas.At(x, y), bInside ? TileColour(x - rc.left, y - rc.top) : c_crGround) << x << ", " << y;
        }
    }
}

// A child window draws the main window's texture with a rectangle that begins to the left of and above the child.
TEST(Picture, ADrawingRectangleThatBeginsOutsideKeepsItsTilesAligned)
{
    CCanvas canvas;
    CPicture picture = MakeTile();
    const RECT rc{-1003, -502, 2000, 2000};
    picture.SetDrawingRect(&rc);
    ASSERT_TRUE(picture.DrawTiled(canvas.Get(), false));
    for (int y = 0; y < CCanvas::c_iHeight; ++y)
    {
        for (int x = 0; x < CCanvas::c_iWidth; ++x)
        {
            EXPECT_EQ(canvas.At(x, y), TileColour(x + 1003, y + 502)) << x << ", " << y;
        }
    }
}

TEST(Picture, TilesAreDrawnOnlyInsideTheClip)
{
    CCanvas canvas;
    CPicture picture = MakeTile();
    const RECT rc{0, 0, CCanvas::c_iWidth, CCanvas::c_iHeight};
    picture.SetDrawingRect(&rc);
    IntersectClipRect(canvas.Get(), 10, 10, 12, 12);
    ASSERT_TRUE(picture.DrawTiled(canvas.Get(), false));
    SelectClipRgn(canvas.Get(), nullptr);
    EXPECT_EQ(canvas.At(10, 10), TileColour(10, 10));
    EXPECT_EQ(canvas.At(11, 11), TileColour(11, 11));
    EXPECT_EQ(canvas.At(9, 10), c_crGround);
    EXPECT_EQ(canvas.At(12, 10), c_crGround);
}

// As pixels, each picture would take 400 MB; a million of them would not fit any machine.
TEST(Picture, AHugeSolidPictureOwnsNoPixels)
{
    constexpr int c_iMany = 1'000'000;
    constexpr int c_iLength = 9999;
    CPicture picture;
    for (int i = 0; i < c_iMany; ++i)
    {
        ASSERT_TRUE(picture.CreatePictureFromColorref(nullptr, c_iLength, c_iLength, RGB(1, 2, 3)));
    }
    EXPECT_TRUE(picture.IsSolid());
    EXPECT_EQ(picture.GetSize().cx, c_iLength);
    EXPECT_EQ(picture.GetPixelColour(c_iLength - 1, c_iLength - 1), COLORREF{RGB(1, 2, 3)});
    EXPECT_EQ(picture.GetPixelColour(c_iLength, 0), CLR_INVALID);
}

TEST(Picture, ASolidPictureFillsItsDrawingRectangle)
{
    CCanvas canvas;
    CPicture picture;
    ASSERT_TRUE(picture.CreatePictureFromColorref(canvas.Get(), 9999, 9999, RGB(200, 100, 50)));
    const RECT rc{-500, 4, 9, 8};
    picture.SetDrawingRect(&rc);
    ASSERT_TRUE(picture.DrawTiled(canvas.Get(), false));
    EXPECT_EQ(canvas.At(0, 4), COLORREF{RGB(200, 100, 50)});
    EXPECT_EQ(canvas.At(8, 7), COLORREF{RGB(200, 100, 50)});
    EXPECT_EQ(canvas.At(9, 7), c_crGround);
    EXPECT_EQ(canvas.At(0, 3), c_crGround);
    EXPECT_EQ(canvas.At(0, 8), c_crGround);
}

TEST(Picture, ASolidPictureKeepsItsEarlierDrawingRectangle)
{
    CPicture picture;
    const RECT rc{5, 6, 70, 80};
    picture.SetDrawingRect(&rc);
    picture.CreatePictureFromColorref(nullptr, 10, 10, 0);
    RECT rcRead{};
    EXPECT_TRUE(picture.GetDrawingRect(&rcRead, false));
    EXPECT_TRUE(EqualRect(&rcRead, &rc));
    EXPECT_TRUE(picture.GetDrawingRect(&rcRead, true));
    const RECT rcAtOrigin{0, 0, 65, 74};
    EXPECT_TRUE(EqualRect(&rcRead, &rcAtOrigin));
}

TEST(Picture, WithoutAPictureAContextOrARectangleNothingIsDrawn)
{
    CCanvas canvas;
    CPicture picture;
    const RECT rc{0, 0, 10, 10};
    picture.SetDrawingRect(&rc);
    EXPECT_FALSE(picture.DrawTiled(canvas.Get(), false));
    EXPECT_FALSE(picture.Draw(canvas.Get(), true, false));

    picture = MakeTile();
    picture.SetDrawingRect(nullptr);
    EXPECT_FALSE(picture.DrawTiled(canvas.Get(), false));
    EXPECT_FALSE(picture.DrawStretched(canvas.Get(), false));
    EXPECT_FALSE(picture.DrawFitted(canvas.Get(), true, false));
    const RECT rcReversed{10, 10, 5, 5};
    picture.SetDrawingRect(&rcReversed);
    EXPECT_FALSE(picture.DrawTiled(canvas.Get(), false));
    picture.SetDrawingRect(&rc);
    EXPECT_FALSE(picture.DrawTiled(nullptr, false));
    EXPECT_FALSE(picture.DrawTiled_Direct2D(nullptr));
    EXPECT_EQ(canvas.At(0, 0), c_crGround);
}

TEST(Picture, PlainAndFittedPicturesAreCentredOnRequest)
{
    CCanvas canvas;
    CPicture picture = MakeTile();
    const RECT rc{0, 0, 20, 12};
    picture.SetDrawingRect(&rc);
    ASSERT_TRUE(picture.Draw(canvas.Get(), true, false));
    EXPECT_EQ(canvas.At(8, 4), TileColour(0, 0));
    EXPECT_EQ(canvas.At(11, 7), TileColour(3, 3));
    EXPECT_EQ(canvas.At(7, 4), c_crGround);

    CCanvas fitted;
    ASSERT_TRUE(picture.DrawFitted(fitted.Get(), true, false));
    EXPECT_EQ(fitted.At(3, 6), c_crGround) << "12 pixels high and wide: from 4 to 16";
    EXPECT_NE(fitted.At(4, 6), c_crGround);
    EXPECT_NE(fitted.At(15, 6), c_crGround);
    EXPECT_EQ(fitted.At(16, 6), c_crGround);
}

TEST(Picture, StretchedCoversTheWholeRectangle)
{
    CCanvas canvas;
    CPicture picture = MakeTile();
    const RECT rc{2, 2, 38, 28};
    picture.SetDrawingRect(&rc);
    ASSERT_TRUE(picture.DrawStretched(canvas.Get(), true));
    EXPECT_EQ(canvas.At(2, 2), COLORREF{RGB(0, 0, 0)}) << "the frame";
    EXPECT_NE(canvas.At(20, 15), c_crGround);
    EXPECT_EQ(canvas.At(1, 15), c_crGround);
    EXPECT_EQ(canvas.At(38, 15), c_crGround);
}

TEST(Picture, CopiesShareThePixelsButNotTheRectangle)
{
    CPicture first = MakeTile();
    CPicture second = first;
    const RECT rc{100, 100, 200, 200};
    second.SetDrawingRect(&rc);
    first.Clear();
    EXPECT_TRUE(first.IsEmpty());
    EXPECT_EQ(second.GetPixelColour(1, 2), TileColour(1, 2));
    RECT rcFirst{};
    EXPECT_FALSE(first.GetDrawingRect(&rcFirst, false));
}

TEST(Picture, TheProgramsOwnBackdropIsFoundByItsResourceNumber)
{
    CPicture picture;
    EXPECT_TRUE(picture.LoadFromResource(GetModuleHandleW(nullptr), 101));
    EXPECT_GT(picture.GetSize().cx, 0);
    EXPECT_FALSE(picture.LoadFromResource(GetModuleHandleW(nullptr), 31999));
    EXPECT_FALSE(picture.IsEmpty()) << "a failed load changes nothing";
}
