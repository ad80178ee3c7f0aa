#pragma once

#include "classes/core/CFnvHash.h"
#include "headless/files/IByteSink.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// The hash of these bytes, as CByteWriter computes it.
std::uint64_t ComputeFnvHash(std::string_view sBytes);

// Writes numbers lowest byte first on every machine, and a hash of everything written. Throws the errors of the sink.
class CByteWriter
{
public:
    explicit CByteWriter(IByteSink& sink);

    void Write8(std::uint8_t uByte) { WriteNumber<1>(uByte); }
    void Write32(std::uint32_t uNumber) { WriteNumber<4>(uNumber); }
    void Write64(std::uint64_t uNumber) { WriteNumber<8>(uNumber); }
    void WriteBytes(std::string_view sBytes);

    // The number of bytes in 32 bits, then the bytes.
    void WriteText(std::string_view sText);

    // Writes the hash of all bytes before, and hands the rest to the sink. The last call.
    void WriteHash();

    // Hands the rest to the sink. The last call where no hash is wanted.
    void Flush();

private:
    template<std::size_t uBytes>
    void WriteNumber(std::uint64_t uNumber)
    {
        constexpr unsigned c_uBitsPerByte = 8;
        std::array<char, uBytes> bytes;
        for (std::size_t u = 0; u < uBytes; ++u)
        {
            bytes[u] = static_cast<char>(uNumber >> (c_uBitsPerByte * u));
        }
        m_sBuffer.append(bytes.data(), bytes.size());
        if (m_sBuffer.size() > c_uPieceBytes)
        {
            Flush();
        }
    }

    static constexpr std::size_t c_uPieceBytes = std::size_t{32} * 1024;

    IByteSink& m_Sink;
    CFnvHash m_Hash;
    std::string m_sBuffer;
};

// Calls write with a writer, and returns the bytes that it wrote. No hash is among them.
std::string MakeBytes(const std::function<void(CByteWriter&)>& write);
