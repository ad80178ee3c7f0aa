#include "classes/windows/drawing/CPicture.h"

#include "classes/windows/drawing/CPictureBits.h"
#include "classes/windows/drawing/CPictureDevice.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace
{
constexpr COLORREF PixelToColour(std::uint32_t uPixel)
{
    constexpr int c_iByte = 8;
    constexpr std::uint32_t c_uByteMask = 0xFF;
    const std::uint32_t uRed = (uPixel >> (2 * c_iByte)) & c_uByteMask;
    const std::uint32_t uGreen = (uPixel >> c_iByte) & c_uByteMask;
    const std::uint32_t uBlue = uPixel & c_uByteMask;
    return (uBlue << (2 * c_iByte)) | (uGreen << c_iByte) | uRed;
}
} // namespace

CPicture::CPicture() = default;
CPicture::~CPicture() = default;
CPicture::CPicture(CPicture&& other) noexcept = default;
CPicture& CPicture::operator=(CPicture&& other) noexcept = default;

// The brush of a render target is not shared: each copy makes its own when it is drawn.
CPicture::CPicture(const CPicture& other)
    : m_pBits(other.m_pBits),
      m_size(other.m_size),
      m_crSolid(other.m_crSolid),
      m_bSolid(other.m_bSolid),
      m_rcDrawing(other.m_rcDrawing),
      m_bRectSet(other.m_bRectSet)
{
}

CPicture& CPicture::operator=(const CPicture& other)
{
    if (this != &other)
    {
        *this = CPicture(other);
    }
    return *this;
}

bool CPicture::CreatePictureFromColorref(HDC, int iWidth, int iHeight, COLORREF cr)
{
    const bool bSolidBefore = m_bSolid;
    m_pBits.reset();
    m_bSolid = iWidth > 0 && iHeight > 0;
    m_size = m_bSolid ? SIZE{iWidth, iHeight} : SIZE{};
    m_crSolid = m_bSolid ? cr : 0;
    if (!m_bSolid || !bSolidBefore)
    {
        m_pDevice.reset(); // a solid brush may stay: it gets its colour at each use
    }
    if (m_bSolid && !m_bRectSet)
    {
        m_rcDrawing = {0, 0, iWidth, iHeight};
    }
    return m_bSolid;
}

bool CPicture::LoadFromResource(HINSTANCE hInstance, int iId)
{
    const CBitmapHandle bitmap(
        static_cast<HBITMAP>(LoadImageW(hInstance, MAKEINTRESOURCEW(iId), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    BITMAP info{};
    if (!bitmap || GetObjectW(bitmap.Get(), sizeof(info), &info) == 0)
    {
        return false;
    }
    std::unique_ptr<CPictureBits> pBits = CPictureBits::Create(info.bmWidth, info.bmHeight);
    if (!pBits)
    {
        return false;
    }
    {
        const CMemoryDc source(nullptr);
        const CMemoryDc target(nullptr);
        const CSelectObject from(source.Get(), bitmap.Get());
        const CSelectObject to(target.Get(), pBits->GetBitmap());
        BitBlt(target.Get(), 0, 0, info.bmWidth, info.bmHeight, source.Get(), 0, 0, SRCCOPY);
    }
    pBits->MakeOpaque();
    Adopt(std::move(pBits));
    return true;
}

bool CPicture::CreateFromPixels(int iWidth, int iHeight, const std::uint32_t* pPixels)
{
    std::unique_ptr<CPictureBits> pBits = pPixels != nullptr ? CPictureBits::Create(iWidth, iHeight) : nullptr;
    if (!pBits)
    {
        return false;
    }
    std::copy_n(pPixels, static_cast<std::size_t>(iWidth) * static_cast<std::size_t>(iHeight), pBits->GetPixels());
    pBits->MakeOpaque();
    Adopt(std::move(pBits));
    return true;
}

void CPicture::Adopt(std::shared_ptr<const CPictureBits> pBits)
{
    m_pDevice.reset();
    m_bSolid = false;
    m_crSolid = 0;
    m_size = pBits->GetSize();
    m_pBits = std::move(pBits);
    if (!m_bRectSet)
    {
        m_rcDrawing = {0, 0, m_size.cx, m_size.cy};
    }
}

void CPicture::Clear()
{
    *this = CPicture();
}

bool CPicture::IsEmpty() const
{
    return !m_bSolid && m_pBits == nullptr;
}

bool CPicture::IsSolid() const
{
    return m_bSolid;
}

SIZE CPicture::GetSize() const
{
    return m_size;
}

COLORREF CPicture::GetColour() const
{
    return m_crSolid;
}

COLORREF CPicture::GetPixelColour(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_size.cx || y >= m_size.cy)
    {
        return CLR_INVALID;
    }
    if (m_bSolid)
    {
        return m_crSolid;
    }
    const std::size_t uIndex =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(m_size.cx) + static_cast<std::size_t>(x);
    return PixelToColour(m_pBits->GetPixels()[uIndex]);
}

void CPicture::SetDrawingRect(const RECT* pRect)
{
    m_rcDrawing = pRect != nullptr ? *pRect : RECT{};
    m_bRectSet = true;
}

bool CPicture::GetDrawingRect(RECT* pRect, bool bAtOrigin) const
{
    if (pRect == nullptr)
    {
        return false;
    }
    *pRect = m_rcDrawing;
    if (bAtOrigin)
    {
        MoveRect(pRect, -m_rcDrawing.left, -m_rcDrawing.top);
    }
    return !IsRectEmpty_Plain(m_rcDrawing);
}
