#pragma once

#include <cstddef>
#include <cstdint>

// UTF-8 text in existing storage, for code that runs when the heap may be broken, exhausted or locked. A text that does
// not fit is truncated at a whole character. Nothing here allocates, throws or calls the system.
class CFixedText
{
public:
    // uSize counts the terminating zero and must be at least 1; the storage must outlive this object.
    CFixedText(char* pStorage, std::size_t uSize) noexcept;

    // Null adds nothing.
    CFixedText& Add(const char* sText) noexcept;

    // Decimal, with leading zeros up to uDigits.
    CFixedText& AddNumber(std::uint64_t uNumber, unsigned uDigits = 1) noexcept;

    // "0x" and at least uDigits hexadecimal digits in lower case.
    CFixedText& AddHex(std::uint64_t uNumber, unsigned uDigits = 1) noexcept;

    const char* Get() const noexcept { return m_pStorage; }
    std::size_t GetLength() const noexcept { return m_uLength; }
    void Clear() noexcept;

private:
    void AddDigits(std::uint64_t uNumber, unsigned uBase, unsigned uDigits) noexcept;

    char* m_pStorage;
    std::size_t m_uSize;
    std::size_t m_uLength = 0;
    bool m_bFull = false; // after a truncation nothing may be added
};
