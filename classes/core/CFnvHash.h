#pragma once

#include <cstddef>
#include <cstdint>

// A 64-bit FNV-1a hash (Fowler, Noll, Vo): for each byte, hash = (hash xor byte) * prime, modulo 2^64.
class CFnvHash
{
public:
    constexpr CFnvHash() = default;

    // Continues after the bytes that gave this hash.
    constexpr explicit CFnvHash(std::uint64_t uHash) : m_uHash(uHash) {}

    constexpr void AddByte(std::uint8_t uByte) { m_uHash = (m_uHash ^ uByte) * c_uPrime; }

    // The four bytes of a word, lowest first on every machine.
    constexpr void AddWord(std::uint32_t uWord)
    {
        for (std::size_t i = 0; i < sizeof uWord; ++i)
        {
            AddByte(static_cast<std::uint8_t>(uWord));
            uWord >>= c_uBitsPerByte;
        }
    }

    constexpr std::uint64_t Get() const { return m_uHash; }

private:
    static constexpr std::uint64_t c_uOffsetBasis = 14'695'981'039'346'656'037U;
    static constexpr std::uint64_t c_uPrime = 1'099'511'628'211U;
    static constexpr unsigned c_uBitsPerByte = 8;

    std::uint64_t m_uHash = c_uOffsetBasis;
};
