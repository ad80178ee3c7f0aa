#include "classes/core/CFixedText.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr unsigned c_uDecimal = 10;
constexpr unsigned c_uHexadecimal = 16;
constexpr unsigned c_uMostDigits = 20; // of a 64-bit number in decimal

// UTF-8 bytes that continue a character have the bits 10xxxxxx.
constexpr unsigned char c_uTopBits = 0xC0;
constexpr unsigned char c_uContinuation = 0x80;

bool ContinuesCharacter(char c)
{
    return (static_cast<unsigned char>(c) & c_uTopBits) == c_uContinuation;
}
} // namespace

CFixedText::CFixedText(char* pStorage, std::size_t uSize) noexcept : m_pStorage(pStorage), m_uSize(uSize)
{
    Clear();
}

void CFixedText::Clear() noexcept
{
    m_uLength = 0;
    m_bFull = false;
    m_pStorage[0] = '\0';
}

CFixedText& CFixedText::Add(const char* sText) noexcept
{
    if (sText == nullptr || m_bFull)
    {
        return *this;
    }
    const std::size_t uWanted = std::strlen(sText);
    const std::size_t uRoom = m_uSize - 1 - m_uLength;
    std::size_t uCount = std::min(uWanted, uRoom);
    m_bFull = uCount < uWanted;
    while (m_bFull && uCount > 0 && ContinuesCharacter(sText[uCount]))
    {
        --uCount;
    }
    std::memcpy(m_pStorage + m_uLength, sText, uCount);
    m_uLength += uCount;
    m_pStorage[m_uLength] = '\0';
    return *this;
}

CFixedText& CFixedText::AddNumber(std::uint64_t uNumber, unsigned uDigits) noexcept
{
    AddDigits(uNumber, c_uDecimal, uDigits);
    return *this;
}

CFixedText& CFixedText::AddHex(std::uint64_t uNumber, unsigned uDigits) noexcept
{
    Add("0x");
    AddDigits(uNumber, c_uHexadecimal, uDigits);
    return *this;
}

void CFixedText::AddDigits(std::uint64_t uNumber, unsigned uBase, unsigned uDigits) noexcept
{
    char sDigits[c_uMostDigits + 1] = {};
    unsigned uPlace = c_uMostDigits;
    const unsigned uLeast = std::min(uDigits, c_uMostDigits);
    do
    {
        --uPlace;
        sDigits[uPlace] = "0123456789abcdef"[uNumber % uBase];
        uNumber /= uBase;
    } while (uPlace > 0 && (uNumber != 0 || c_uMostDigits - uPlace < uLeast));
    Add(sDigits + uPlace);
}
