#include "headless/files/CGzipSink.h"

#include <zlib.h>

#include <array>
#include <cstddef>
#include <new>

namespace
{

// Numbers as text lose half of their bytes at any level; the higher ones take several times as long for a tenth more.
constexpr int c_iLevel = Z_BEST_SPEED;
constexpr int c_iGzip = 16; // added to the size of the window: the format of gzip

// The header names no system, so that every system writes the same file.
constexpr int c_iUnknownSystem = 255;

constexpr std::size_t c_uPieceBytes = std::size_t{64} * 1024;

} // namespace

struct CGzipSink::CStream
{
    CStream()
    {
        header.os = c_iUnknownSystem;
        // The only other errors are wrong arguments.
        if (deflateInit2(&stream, c_iLevel, Z_DEFLATED, MAX_WBITS + c_iGzip, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY) != Z_OK)
        {
            throw std::bad_alloc();
        }
        deflateSetHeader(&stream, &header);
        StartPiece();
    }

    CStream(const CStream&) = delete;
    CStream& operator=(const CStream&) = delete;
    ~CStream() { deflateEnd(&stream); }

    void StartPiece()
    {
        stream.next_out = piece.data();
        stream.avail_out = static_cast<uInt>(piece.size());
    }

    z_stream stream{};
    gz_header header{};
    std::array<Bytef, c_uPieceBytes> piece;
};

CGzipSink::CGzipSink(IByteSink& sink) : m_Sink(sink), m_pStream(std::make_unique<CStream>()) {}

CGzipSink::~CGzipSink() = default;

void CGzipSink::Write(std::string_view sBytes)
{
    z_stream& stream = m_pStream->stream;
    while (!sBytes.empty())
    {
        const std::string_view sPiece = sBytes.substr(0, c_uPieceBytes);
        sBytes.remove_prefix(sPiece.size());
        stream.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(sPiece.data())); // the library only reads
        stream.avail_in = static_cast<uInt>(sPiece.size());
        while (stream.avail_in > 0)
        {
            Compress(Z_NO_FLUSH);
        }
    }
}

void CGzipSink::Commit()
{
    while (Compress(Z_FINISH) != Z_STREAM_END)
    {
    }
    HandOn();
}

int CGzipSink::Compress(int flush)
{
    if (m_pStream->stream.avail_out == 0)
    {
        HandOn();
    }
    return deflate(&m_pStream->stream, flush);
}

void CGzipSink::HandOn()
{
    m_Sink.Write({reinterpret_cast<const char*>(m_pStream->piece.data()), c_uPieceBytes - m_pStream->stream.avail_out});
    m_pStream->StartPiece();
}
