#include "classes/core/DecimalText.h"

#include <algorithm>

namespace
{

// Larger exponents saturate at this one: no text has enough digits to bring such a number back into any range.
constexpr std::int64_t c_llExponentLimit = 1'000'000'000'000'000;

constexpr int c_iBase = 10;

bool IsBlank(wchar_t c)
{
    return c == L' ' || c == L'\t';
}

// Only the ten ASCII digits count; digits of other scripts are not parsed.
bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

// Reads sText from the front; each Take... consumes only the characters that it accepts.
class CScanner
{
public:
    explicit CScanner(std::wstring_view sText) : m_sText(sText) {}

    std::size_t GetPosition() const { return m_uAt; }
    bool IsAtEnd() const { return m_uAt == m_sText.size(); }
    bool IsAtDigit() const { return !IsAtEnd() && IsDigit(m_sText[m_uAt]); }

    void SkipBlanks()
    {
        while (!IsAtEnd() && IsBlank(m_sText[m_uAt]))
        {
            ++m_uAt;
        }
    }

    bool TakeAnyOf(std::wstring_view sCharacters)
    {
        const bool bTaken = !IsAtEnd() && sCharacters.find(m_sText[m_uAt]) != std::wstring_view::npos;
        m_uAt += bTaken ? 1 : 0;
        return bTaken;
    }

    // True for "-", false for "+" and for no sign.
    bool TakeSign()
    {
        const bool bNegative = TakeAnyOf(L"-");
        if (!bNegative)
        {
            TakeAnyOf(L"+");
        }
        return bNegative;
    }

    std::wstring_view TakeDigits()
    {
        const std::size_t uFirst = m_uAt;
        while (IsAtDigit())
        {
            ++m_uAt;
        }
        return m_sText.substr(uFirst, m_uAt - uFirst);
    }

private:
    std::wstring_view m_sText;
    std::size_t m_uAt{};
};

// Collects significant digits; see CDecimalText::sDigits.
class CDigitCollector
{
public:
    void Append(std::wstring_view sDigits, CDecimalText& out)
    {
        for (const wchar_t c : sDigits)
        {
            if (out.sDigits.empty() && c == L'0')
            {
                ++m_uLeadingZeros;
            }
            else if (out.sDigits.size() < c_uMaxSignificantDigits)
            {
                out.sDigits += static_cast<char>('0' + (c - L'0'));
            }
            else
            {
                m_bCutOff = m_bCutOff || c != L'0';
            }
        }
    }

    std::size_t GetLeadingZeros() const { return m_uLeadingZeros; }

    void Finish(CDecimalText& out) const
    {
        if (m_bCutOff)
        {
            out.sDigits += '1';
        }
    }

private:
    std::size_t m_uLeadingZeros{};
    bool m_bCutOff{};
};

std::int64_t ToExponent(std::wstring_view sDigits, bool bNegative)
{
    std::int64_t llValue = 0;
    for (const wchar_t c : sDigits)
    {
        llValue = std::min(llValue * c_iBase + (c - L'0'), c_llExponentLimit);
    }
    return bNegative ? -llValue : llValue;
}

// Digits with at most one "." among, before or after them.
bool ScanDigits(CScanner& scanner, CDecimalText& out)
{
    const std::wstring_view sWhole = scanner.TakeDigits();
    const std::wstring_view sFraction = scanner.TakeAnyOf(L".") ? scanner.TakeDigits() : std::wstring_view();
    if (sWhole.empty() && sFraction.empty())
    {
        return false;
    }
    CDigitCollector collector;
    collector.Append(sWhole, out);
    collector.Append(sFraction, out);
    collector.Finish(out);
    out.llExponent =
        static_cast<std::int64_t>(sWhole.size()) - 1 - static_cast<std::int64_t>(collector.GetLeadingZeros());
    return true;
}

bool ScanExponent(CScanner& scanner, CDecimalText& out)
{
    if (!scanner.TakeAnyOf(L"eE"))
    {
        return true;
    }
    const bool bNegative = scanner.TakeSign();
    const std::wstring_view sDigits = scanner.TakeDigits();
    out.llExponent += ToExponent(sDigits, bNegative);
    return !sDigits.empty();
}

bool ScanNumber(CScanner& scanner, CDecimalText& out)
{
    scanner.SkipBlanks();
    out.bNegative = scanner.TakeSign();
    if (!ScanDigits(scanner, out) || !ScanExponent(scanner, out))
    {
        return false;
    }
    scanner.TakeAnyOf(L"%");
    scanner.SkipBlanks();
    return scanner.IsAtEnd();
}

} // namespace

bool ScanDecimalText(std::wstring_view sText, CDecimalText* pOut, std::size_t* pErrorPosition)
{
    CScanner scanner(sText);
    CDecimalText result;
    if (!ScanNumber(scanner, result))
    {
        *pErrorPosition = scanner.GetPosition();
        return false;
    }
    if (result.sDigits.empty())
    {
        result.llExponent = 0;
    }
    *pOut = std::move(result);
    return true;
}

std::string ToScientificText(const CDecimalText& text)
{
    std::string sResult = text.bNegative ? "-" : "";
    if (text.sDigits.empty())
    {
        return sResult + '0';
    }
    sResult += text.sDigits.front();
    sResult += '.';
    sResult.append(text.sDigits, 1);
    sResult += 'e';
    sResult += std::to_string(text.llExponent);
    return sResult;
}
