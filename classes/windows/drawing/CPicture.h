#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

struct ID2D1HwndRenderTarget;
class CPictureBits;
class CPictureDevice;

// How a window draws its backdrop.
enum class EnumPicDrawMode : std::uint8_t
{
    Plain = 0,
    Fitted = 1,
    Stretched = 2,
    Tiled = 3
};

// A picture and the rectangle it is drawn into, in the coordinates of the target.
//
// A picture is either solid (one colour and a size: it owns no pixels, however large it is) or textured (32-bit
// pixels). Copies share the pixels but have a drawing rectangle of their own, so that parent and child windows can
// show the same texture, each in its own coordinates. Every Draw operation returns false and draws nothing if there is
// no picture or no device context or if the drawing rectangle is empty. User-interface thread only.
class CPicture
{
public:
    CPicture();
    ~CPicture();
    CPicture(const CPicture& other);
    CPicture& operator=(const CPicture& other);
    CPicture(CPicture&& other) noexcept;
    CPicture& operator=(CPicture&& other) noexcept;

    // A solid picture of width x height pixels. The device context may be null: nothing is allocated for the pixels.
    // False (and an empty picture) if a length is not positive. The drawing rectangle becomes (0, 0, width, height)
    // unless one was set before.
    bool CreatePictureFromColorref(HDC hDc, int iWidth, int iHeight, COLORREF cr);

    // The bitmap resource of that number; false (picture unchanged) if there is none.
    bool LoadFromResource(HINSTANCE hInstance, int iId);

    // Pixels given in rows from the top, 0x00RRGGBB each, width x height of them.
    bool CreateFromPixels(int iWidth, int iHeight, const std::uint32_t* pPixels);

    void Clear();
    bool IsEmpty() const;
    bool IsSolid() const;
    SIZE GetSize() const;
    // The colour of a solid picture; 0 for any other.
    COLORREF GetColour() const;
    // The pixel in column x of row y as a COLORREF; CLR_INVALID outside.
    COLORREF GetPixelColour(int x, int y) const;

    // A null pointer empties the rectangle.
    void SetDrawingRect(const RECT* pRect);
    // bAtOrigin moves the result so that its left top corner is (0, 0). False (and an empty result) if none is set.
    bool GetDrawingRect(RECT* pRect, bool bAtOrigin) const;

    // At its own size, clipped to the rectangle; centred in it or at its left top corner.
    // bFrame, here and below: a black line of one pixel along the inside of the drawn area.
    bool Draw(HDC hDc, bool bCentred, bool bFrame) const;
    // As large as fits into the rectangle in its own proportions.
    bool DrawFitted(HDC hDc, bool bCentred, bool bFrame) const;
    // Stretched over the whole rectangle; the proportions are not kept.
    bool DrawStretched(HDC hDc, bool bFrame) const;
    // Repeated over the whole rectangle, the first tile at its left top corner, and only where the context's clip
    // shows it.
    bool DrawTiled(HDC hDc, bool bFrame) const;
    // As DrawTiled. The brush is kept with the target it was made for. A failure drops it and the picture's reference
    // to the target.
    bool DrawTiled_Direct2D(ID2D1HwndRenderTarget* pTarget) const;
    // Drops the brush and the target that DrawTiled_Direct2D keeps.
    void ReleaseDirect2D() const;

    // Draws by mode as the windows do: plain and fitted pictures are centred, none has a frame.
    bool DrawByMode(HDC hDc, EnumPicDrawMode eMode) const;

private:
    void Adopt(std::shared_ptr<const CPictureBits> pBits);
    bool CanDraw(HDC hDc) const;
    void DrawScaled(HDC hDc, const RECT& rcTarget, bool bFrame) const;

    std::shared_ptr<const CPictureBits> m_pBits;
    SIZE m_size{};
    COLORREF m_crSolid = 0;
    bool m_bSolid = false;
    RECT m_rcDrawing{};
    bool m_bRectSet = false;
    mutable std::unique_ptr<CPictureDevice> m_pDevice;
};
