#include "resources/drawing/BitmapFiles.h"

#include <cstddef>

namespace
{
// Sizes of headers in the two file formats, in bytes.
constexpr std::uint32_t c_uBitmapFileHeader = 14;
constexpr std::uint32_t c_uBitmapInfoHeader = 40;
constexpr std::uint32_t c_uIconDirectory = 6;
constexpr std::uint32_t c_uIconEntry = 16;

constexpr std::uint16_t c_uBitsPerPixelOpaque = 24;
constexpr std::uint16_t c_uBitsPerPixelAlpha = 32;
constexpr std::uint32_t c_uBitsPerByte = 8;
// Rows of a bitmap begin at multiples of 32 bits.
constexpr std::uint32_t c_uRowBits = 32;
// 96 dots per inch, in the dots per metre that the header wants.
constexpr std::uint32_t c_uPixelsPerMetre = 3780;
// The entry of an icon has one byte for a side; 0 means 256.
constexpr int c_iSideWrittenAsZero = 256;
constexpr std::uint8_t c_uHalfOpaque = 128;

using Bytes = std::vector<std::uint8_t>;

void Append(Bytes& bytes, std::uint32_t uValue, std::uint32_t uByteCount)
{
    for (std::uint32_t i = 0; i < uByteCount; ++i)
    {
        bytes.push_back(static_cast<std::uint8_t>(uValue >> (i * c_uBitsPerByte)));
    }
}

void Append16(Bytes& bytes, std::uint32_t uValue)
{
    Append(bytes, uValue, sizeof(std::uint16_t));
}

void Append32(Bytes& bytes, std::uint32_t uValue)
{
    Append(bytes, uValue, sizeof(std::uint32_t));
}

std::uint32_t RowBytes(int iWidth, std::uint32_t uBitsPerPixel)
{
    const std::uint32_t uBits = static_cast<std::uint32_t>(iWidth) * uBitsPerPixel;
    return (uBits + c_uRowBits - 1) / c_uRowBits * (c_uRowBits / c_uBitsPerByte);
}

void AppendInfoHeader(Bytes& bytes, int iWidth, int iHeight, std::uint16_t uBitsPerPixel)
{
    Append32(bytes, c_uBitmapInfoHeader);
    Append32(bytes, static_cast<std::uint32_t>(iWidth));
    Append32(bytes, static_cast<std::uint32_t>(iHeight));
    Append16(bytes, 1); // planes
    Append16(bytes, uBitsPerPixel);
    Append32(bytes, 0); // not compressed
    Append32(bytes, 0); // the size of an uncompressed picture may be left out
    Append32(bytes, c_uPixelsPerMetre);
    Append32(bytes, c_uPixelsPerMetre);
    Append32(bytes, 0); // no palette
    Append32(bytes, 0); // no important colours in it
}

// Rows go from bottom to top, pixels blue first.
void AppendPixels(Bytes& bytes, const CImage& image, bool bAlpha)
{
    const std::uint32_t uBitsPerPixel = bAlpha ? c_uBitsPerPixelAlpha : c_uBitsPerPixelOpaque;
    for (int iY = image.GetHeight() - 1; iY >= 0; --iY)
    {
        const std::size_t uRowEnd = bytes.size() + RowBytes(image.GetWidth(), uBitsPerPixel);
        for (int iX = 0; iX < image.GetWidth(); ++iX)
        {
            const CPixel& pixel = image.At(iX, iY);
            bytes.insert(bytes.end(), {pixel.blue, pixel.green, pixel.red});
            if (bAlpha)
            {
                bytes.push_back(pixel.alpha);
            }
        }
        bytes.resize(uRowEnd);
    }
}

// The mask of one bit per pixel (1 = transparent) that old readers use instead of the alpha channel.
void AppendMask(Bytes& bytes, const CImage& image)
{
    for (int iY = image.GetHeight() - 1; iY >= 0; --iY)
    {
        const std::size_t uRow = bytes.size();
        bytes.resize(uRow + RowBytes(image.GetWidth(), 1));
        for (int iX = 0; iX < image.GetWidth(); ++iX)
        {
            if (image.At(iX, iY).alpha < c_uHalfOpaque)
            {
                const auto uX = static_cast<std::uint32_t>(iX);
                bytes[uRow + uX / c_uBitsPerByte] |=
                    static_cast<std::uint8_t>(1U << (c_uBitsPerByte - 1 - uX % c_uBitsPerByte));
            }
        }
    }
}

Bytes MakeIconImage(const CImage& image)
{
    Bytes bytes;
    // The mask follows the colours; the height in the header counts the rows of both.
    AppendInfoHeader(bytes, image.GetWidth(), image.GetHeight() * 2, c_uBitsPerPixelAlpha);
    AppendPixels(bytes, image, true);
    AppendMask(bytes, image);
    return bytes;
}

std::uint8_t SideInEntry(int iSide)
{
    return iSide == c_iSideWrittenAsZero ? std::uint8_t{0} : static_cast<std::uint8_t>(iSide);
}
} // namespace

std::vector<std::uint8_t> MakeBitmapFile(const CImage& image)
{
    const std::uint32_t uPixelBytes =
        RowBytes(image.GetWidth(), c_uBitsPerPixelOpaque) * static_cast<std::uint32_t>(image.GetHeight());
    const std::uint32_t uOffset = c_uBitmapFileHeader + c_uBitmapInfoHeader;
    Bytes bytes = {'B', 'M'};
    Append32(bytes, uOffset + uPixelBytes);
    Append32(bytes, 0); // reserved
    Append32(bytes, uOffset);
    AppendInfoHeader(bytes, image.GetWidth(), image.GetHeight(), c_uBitsPerPixelOpaque);
    AppendPixels(bytes, image, false);
    return bytes;
}

std::vector<std::uint8_t> MakeIconFile(const std::vector<CImage>& images)
{
    Bytes directory;
    Bytes contents;
    Append16(directory, 0); // reserved
    Append16(directory, 1); // an icon, not a cursor
    Append16(directory, static_cast<std::uint32_t>(images.size()));
    const std::uint32_t uContents = c_uIconDirectory + static_cast<std::uint32_t>(images.size()) * c_uIconEntry;
    for (const CImage& image : images)
    {
        const Bytes picture = MakeIconImage(image);
        directory.push_back(SideInEntry(image.GetWidth()));
        directory.push_back(SideInEntry(image.GetHeight()));
        Append16(directory, 0); // no palette; reserved
        Append16(directory, 1); // planes
        Append16(directory, c_uBitsPerPixelAlpha);
        Append32(directory, static_cast<std::uint32_t>(picture.size()));
        Append32(directory, uContents + static_cast<std::uint32_t>(contents.size()));
        contents.insert(contents.end(), picture.begin(), picture.end());
    }
    directory.insert(directory.end(), contents.begin(), contents.end());
    return directory;
}
