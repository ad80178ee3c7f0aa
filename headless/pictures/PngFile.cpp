#include "headless/pictures/PngFile.h"

#include "headless/files/IByteSink.h"
#include "headless/pictures/CWorldImage.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace
{

// The format: Portable Network Graphics (PNG), third edition, W3C 2025.
constexpr std::string_view c_sSignature = "\x89PNG\r\n\x1A\n";
constexpr std::uint8_t c_uBitsPerChannel = 8;
constexpr std::uint8_t c_uTrueColour = 2;
constexpr std::size_t c_uChannels = 3;
constexpr std::size_t c_uBytesOfNumber = 4;
constexpr unsigned c_uByteBits = 8;

// Each byte is written as its difference from the byte above it. In circles of one colour on a background of one colour
// nearly all of them are zero, so that runs of one byte are all that the compression needs to look for. Its full search
// takes longer, at any level.
constexpr std::uint8_t c_uDifferenceFromAbove = 2;
constexpr int c_iLevel = Z_BEST_SPEED;
constexpr int c_iStrategy = Z_RLE;

constexpr std::size_t c_uPieceBytes = std::size_t{64} * 1024;

void AppendNumber(std::string& sBytes, std::uint32_t uNumber)
{
    for (std::size_t u = c_uBytesOfNumber; u > 0; --u)
    {
        sBytes += static_cast<char>(static_cast<std::uint8_t>(uNumber >> ((u - 1) * c_uByteBits)));
    }
}

// sType has four letters.
void WriteChunk(IByteSink& sink, std::string_view sType, std::string_view sData)
{
    std::string sChunk;
    sChunk.reserve(sType.size() + sData.size() + 2 * c_uBytesOfNumber);
    AppendNumber(sChunk, static_cast<std::uint32_t>(sData.size()));
    sChunk.append(sType).append(sData);
    const auto* const pChecked = reinterpret_cast<const Bytef*>(sChunk.data() + c_uBytesOfNumber);
    const uLong uSum = crc32(0, pChecked, static_cast<uInt>(sChunk.size() - c_uBytesOfNumber));
    AppendNumber(sChunk, static_cast<std::uint32_t>(uSum));
    sink.Write(sChunk);
}

// Compresses the pixels piece by piece; each piece of the result becomes a chunk.
class CPixelStream
{
public:
    explicit CPixelStream(IByteSink& sink) : m_Sink(sink)
    {
        // The only other errors are wrong arguments.
        if (deflateInit2(&m_Stream, c_iLevel, Z_DEFLATED, MAX_WBITS, MAX_MEM_LEVEL, c_iStrategy) != Z_OK)
        {
            throw std::bad_alloc();
        }
        StartPiece();
    }

    CPixelStream(const CPixelStream&) = delete;
    CPixelStream& operator=(const CPixelStream&) = delete;
    ~CPixelStream() { deflateEnd(&m_Stream); }

    void Write(const Bytef* pBytes, std::size_t uCount)
    {
        m_Stream.next_in = const_cast<Bytef*>(pBytes); // the library only reads
        m_Stream.avail_in = static_cast<uInt>(uCount);
        while (m_Stream.avail_in > 0)
        {
            Compress(Z_NO_FLUSH);
        }
    }

    void Finish()
    {
        while (Compress(Z_FINISH) != Z_STREAM_END)
        {
        }
        WritePiece();
    }

private:
    int Compress(int flush)
    {
        if (m_Stream.avail_out == 0)
        {
            WritePiece();
        }
        return deflate(&m_Stream, flush);
    }

    void StartPiece()
    {
        m_Stream.next_out = m_Piece.data();
        m_Stream.avail_out = static_cast<uInt>(m_Piece.size());
    }

    void WritePiece()
    {
        WriteChunk(m_Sink, "IDAT",
                   {reinterpret_cast<const char*>(m_Piece.data()), m_Piece.size() - m_Stream.avail_out});
        StartPiece();
    }

    IByteSink& m_Sink;
    z_stream m_Stream{};
    std::array<Bytef, c_uPieceBytes> m_Piece{};
};

} // namespace

void WritePng(const CWorldImage& image, IByteSink& sink)
{
    const CSize<int>& size = image.GetSize();
    std::string sHeader;
    AppendNumber(sHeader, static_cast<std::uint32_t>(size.cx));
    AppendNumber(sHeader, static_cast<std::uint32_t>(size.cy));
    sHeader += static_cast<char>(c_uBitsPerChannel);
    sHeader += static_cast<char>(c_uTrueColour);
    sHeader.append(3, '\0'); // compression, filter method and interlace have one usual value each

    sink.Write(c_sSignature);
    WriteChunk(sink, "IHDR", sHeader);
    CPixelStream pixels(sink);
    const std::size_t uRowBytes = static_cast<std::size_t>(size.cx) * c_uChannels;
    const std::vector<std::uint8_t> nothing(uRowBytes);
    std::vector<std::uint8_t> filtered(1 + uRowBytes, c_uDifferenceFromAbove);
    const std::uint8_t* pAbove = nothing.data();
    for (int row = 0; row < size.cy; ++row)
    {
        const std::uint8_t* const pRow = image.GetPixels().data() + static_cast<std::size_t>(row) * uRowBytes;
        std::transform(
            pRow, pRow + uRowBytes, pAbove, filtered.begin() + 1,
            [](std::uint8_t uByte, std::uint8_t uAbove) { return static_cast<std::uint8_t>(uByte - uAbove); });
        pixels.Write(filtered.data(), filtered.size());
        pAbove = pRow;
    }
    pixels.Finish();
    WriteChunk(sink, "IEND", {});
}
