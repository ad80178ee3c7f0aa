#pragma once

#include <compare>
#include <memory>

struct CDecimalText;

// A decimal number of 100 significant digits, for what users type: "0.1" is exactly one tenth here, not the nearest
// double. Numbers beyond 10^1,000,000 saturate at that bound; numbers nearer to zero than 10^-1,000,000 become zero.
// There is no infinity and no NaN.
class CBigFloat
{
public:
    CBigFloat() noexcept;

    // The double's exact value up to 100 digits; infinities become the largest double of their sign; NaN becomes zero.
    explicit CBigFloat(double dValue);

    explicit CBigFloat(const CDecimalText& text);

    CBigFloat(const CBigFloat& other);
    CBigFloat(CBigFloat&& other) noexcept;
    CBigFloat& operator=(const CBigFloat& other);
    CBigFloat& operator=(CBigFloat&& other) noexcept;
    ~CBigFloat();

    // The nearest double. Saturates: beyond the range of doubles it gives the largest double of that sign, never an
    // infinity.
    double ToDouble() const;

    bool operator==(const CBigFloat& other) const;
    bool operator==(int iOther) const;
    std::strong_ordering operator<=>(const CBigFloat& other) const;
    std::strong_ordering operator<=>(int iOther) const;

private:
    struct CNumber;

    const CNumber& GetNumber() const;

    // Null means zero, so that default construction and moving never allocate.
    std::unique_ptr<CNumber> m_pNumber;
};
