#include "tests/endtoend/CScreenPicture.h"

#include <wincodec.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>

namespace
{
constexpr WORD c_uBitsPerPixel = 32;
constexpr std::size_t c_uPaletteColours = 256;
constexpr std::uint32_t c_uOpaque = 0xFF000000;
constexpr std::uint32_t c_uByteMask = 0xFF;
constexpr int c_iRedShift = 16;
constexpr int c_iGreenShift = 8;

void Check(HRESULT iResult, const char* sWhat)
{
    if (FAILED(iResult))
    {
        throw std::runtime_error(std::string("no PNG file: ") + sWhat + " failed with " + std::to_string(iResult));
    }
}

// An owned COM reference, released at the end of its scope.
template<class T>
class CReference
{
public:
    CReference() = default;
    ~CReference()
    {
        if (m_p != nullptr)
        {
            m_p->Release();
        }
    }
    CReference(const CReference&) = delete;
    CReference& operator=(const CReference&) = delete;
    T** Receive() { return &m_p; }
    T* operator->() const { return m_p; }
    T* Get() const { return m_p; }

private:
    T* m_p = nullptr;
};

class CComScope
{
public:
    CComScope() { Check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), "CoInitializeEx"); }
    ~CComScope() { CoUninitialize(); }
    CComScope(const CComScope&) = delete;
    CComScope& operator=(const CComScope&) = delete;
};
} // namespace

CScreenPicture::CScreenPicture(RECT rcPart)
{
    const RECT rcScreen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    RECT rcVisible{};
    if (IntersectRect(&rcVisible, &rcPart, &rcScreen) == FALSE)
    {
        throw std::runtime_error("the rectangle lies outside the screen");
    }
    m_iWidth = rcVisible.right - rcVisible.left;
    m_iHeight = rcVisible.bottom - rcVisible.top;
    m_aPixels.resize(static_cast<std::size_t>(m_iWidth) * static_cast<std::size_t>(m_iHeight));

    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = m_iWidth;
    info.bmiHeader.biHeight = -m_iHeight; // rows from top to bottom
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = c_uBitsPerPixel;
    info.bmiHeader.biCompression = BI_RGB;

    const HDC hScreen = GetDC(nullptr);
    const HDC hMemory = CreateCompatibleDC(hScreen);
    const HBITMAP hBitmap = CreateCompatibleBitmap(hScreen, m_iWidth, m_iHeight);
    const HGDIOBJ hBefore = SelectObject(hMemory, hBitmap);
    const BOOL bCopied = BitBlt(hMemory, 0, 0, m_iWidth, m_iHeight, hScreen, rcVisible.left, rcVisible.top, SRCCOPY);
    SelectObject(hMemory, hBefore);
    const int iRows =
        GetDIBits(hMemory, hBitmap, 0, static_cast<UINT>(m_iHeight), m_aPixels.data(), &info, DIB_RGB_COLORS);
    DeleteObject(hBitmap);
    DeleteDC(hMemory);
    ReleaseDC(nullptr, hScreen);
    if (bCopied == FALSE || iRows != m_iHeight)
    {
        throw std::runtime_error("the screen cannot be copied");
    }
}

COLORREF CScreenPicture::GetPixel(int iX, int iY) const
{
    const std::uint32_t uPixel =
        m_aPixels.at(static_cast<std::size_t>(iY) * static_cast<std::size_t>(m_iWidth) + static_cast<std::size_t>(iX));
    return RGB((uPixel >> c_iRedShift) & c_uByteMask, (uPixel >> c_iGreenShift) & c_uByteMask, uPixel & c_uByteMask);
}

std::vector<std::uint32_t> CScreenPicture::FindPalette() const
{
    std::map<std::uint32_t, std::size_t> counts;
    for (const std::uint32_t uPixel : m_aPixels)
    {
        ++counts[uPixel | c_uOpaque];
    }
    std::vector<std::pair<std::size_t, std::uint32_t>> colours;
    for (const auto& [uColour, uCount] : counts)
    {
        colours.emplace_back(uCount, uColour);
    }
    std::ranges::sort(colours, std::ranges::greater());
    colours.resize(std::min(colours.size(), c_uPaletteColours));
    std::vector<std::uint32_t> palette;
    for (const auto& [uCount, uColour] : colours)
    {
        palette.push_back(uColour);
    }
    return palette;
}

void CScreenPicture::SavePng(const std::filesystem::path& file) const
{
    const CComScope com;
    CReference<IWICImagingFactory> factory;
    Check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(factory.Receive())),
          "the imaging component");
    CReference<IWICStream> stream;
    Check(factory->CreateStream(stream.Receive()), "CreateStream");
    Check(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE), "opening the file");
    CReference<IWICBitmapEncoder> encoder;
    Check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.Receive()), "CreateEncoder");
    Check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache), "Initialize");
    CReference<IWICBitmapFrameEncode> frame;
    Check(encoder->CreateNewFrame(frame.Receive(), nullptr), "CreateNewFrame");
    Check(frame->Initialize(nullptr), "the frame's Initialize");

    const auto uWidth = static_cast<UINT>(m_iWidth);
    const auto uHeight = static_cast<UINT>(m_iHeight);
    CReference<IWICBitmap> bitmap;
    const auto uBytes = static_cast<UINT>(m_aPixels.size() * sizeof(std::uint32_t));
    auto* pBytes = reinterpret_cast<BYTE*>(const_cast<std::uint32_t*>(m_aPixels.data())); // only read
    Check(factory->CreateBitmapFromMemory(uWidth, uHeight, GUID_WICPixelFormat32bppBGR,
                                          uWidth * static_cast<UINT>(sizeof(std::uint32_t)), uBytes, pBytes,
                                          bitmap.Receive()),
          "CreateBitmapFromMemory");
    CReference<IWICPalette> palette;
    Check(factory->CreatePalette(palette.Receive()), "CreatePalette");
    std::vector<WICColor> aColours = FindPalette();
    Check(palette->InitializeCustom(aColours.data(), static_cast<UINT>(aColours.size())), "InitializeCustom");
    CReference<IWICFormatConverter> converter;
    Check(factory->CreateFormatConverter(converter.Receive()), "CreateFormatConverter");
    WICPixelFormatGUID format = GUID_WICPixelFormat8bppIndexed;
    Check(converter->Initialize(bitmap.Get(), format, WICBitmapDitherTypeNone, palette.Get(), 0.,
                                WICBitmapPaletteTypeCustom),
          "the converter's Initialize");
    Check(frame->SetSize(uWidth, uHeight), "SetSize");
    Check(frame->SetPixelFormat(&format), "SetPixelFormat");
    Check(frame->SetPalette(palette.Get()), "SetPalette");
    Check(frame->WriteSource(converter.Get(), nullptr), "WriteSource");
    Check(frame->Commit(), "the frame's Commit");
    Check(encoder->Commit(), "Commit");
}
