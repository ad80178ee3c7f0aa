#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Reads what CByteWriter has written. Bytes that are missing are read as zero; IsGood then tells.
class CByteReader
{
public:
    // The bytes must outlive this object.
    explicit CByteReader(std::string_view sBytes) : m_sBytes(sBytes) {}

    std::uint8_t Read8() { return static_cast<std::uint8_t>(ReadNumber(1)); }
    std::uint32_t Read32() { return static_cast<std::uint32_t>(ReadNumber(4)); }
    std::uint64_t Read64() { return ReadNumber(8); }

    // Empty if so many are not left.
    std::string_view ReadBytes(std::size_t uCount)
    {
        if (uCount > m_sBytes.size())
        {
            m_bGood = false;
            m_sBytes = {};
            return {};
        }
        const std::string_view sRead = m_sBytes.substr(0, uCount);
        m_sBytes.remove_prefix(uCount);
        return sRead;
    }

    // A longer text is an error.
    std::string_view ReadText(std::size_t uMostBytes)
    {
        const std::size_t uCount = Read32();
        m_bGood = m_bGood && uCount <= uMostBytes;
        return ReadBytes(m_bGood ? uCount : 0);
    }

    std::size_t GetLeft() const { return m_sBytes.size(); }
    bool IsGood() const { return m_bGood; }

private:
    std::uint64_t ReadNumber(std::size_t uBytes)
    {
        constexpr unsigned c_uBitsPerByte = 8;
        const std::string_view sRead = ReadBytes(uBytes);
        std::uint64_t uNumber = 0;
        for (std::size_t u = sRead.size(); u > 0; --u)
        {
            uNumber = (uNumber << c_uBitsPerByte) | static_cast<std::uint8_t>(sRead[u - 1]);
        }
        return uNumber;
    }

    std::string_view m_sBytes;
    bool m_bGood = true;
};
