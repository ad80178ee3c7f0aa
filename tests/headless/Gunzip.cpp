#include "tests/headless/Gunzip.h"

#include <zlib.h>

#include <array>
#include <stdexcept>

std::string Gunzip(std::string_view sBytes)
{
    constexpr int c_iOnlyGzip = 16;
    z_stream stream{};
    if (inflateInit2(&stream, MAX_WBITS + c_iOnlyGzip) != Z_OK)
    {
        throw std::runtime_error("there is no memory");
    }
    std::string sText;
    std::array<char, 4096> piece{};
    stream.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(sBytes.data()));
    stream.avail_in = static_cast<uInt>(sBytes.size());
    int result = Z_OK;
    while (stream.avail_in > 0 || result == Z_OK)
    {
        stream.next_out = reinterpret_cast<Bytef*>(piece.data());
        stream.avail_out = static_cast<uInt>(piece.size());
        result = inflate(&stream, Z_NO_FLUSH);
        sText.append(piece.data(), piece.size() - stream.avail_out);
        if (result != Z_OK && result != Z_STREAM_END)
        {
            break;
        }
        if (result == Z_STREAM_END && stream.avail_in > 0)
        {
            inflateReset(&stream);
        }
    }
    inflateEnd(&stream);
    if (result != Z_STREAM_END)
    {
        throw std::runtime_error("this is no whole gzip file");
    }
    return sText;
}
