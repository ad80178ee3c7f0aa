#include "tests/fuzz/CFuzzInput.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace
{

constexpr std::string_view c_sBlanks = " \t\r\n";

} // namespace

bool CFuzzInput::IsAtEnd() const
{
    return m_sText.find_first_not_of(c_sBlanks) == std::string_view::npos;
}

int CFuzzInput::TakeInt()
{
    return TakeInt(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

int CFuzzInput::TakeInt(int low, int high)
{
    constexpr int c_iDecimal = 10;
    const long long value = std::strtoll(TakeWord().c_str(), nullptr, c_iDecimal);
    return static_cast<int>(std::clamp<long long>(value, low, high));
}

double CFuzzInput::TakeDouble()
{
    return std::strtod(TakeWord().c_str(), nullptr);
}

std::wstring CFuzzInput::TakeLine()
{
    const std::string_view sLine = m_sText.substr(0, m_sText.find('\n'));
    m_sText.remove_prefix(std::min(sLine.size() + 1, m_sText.size()));
    std::wstring sWide;
    for (const char c : sLine)
    {
        sWide += static_cast<wchar_t>(static_cast<unsigned char>(c));
    }
    return sWide;
}

std::string CFuzzInput::TakeWord()
{
    m_sText.remove_prefix(std::min(m_sText.find_first_not_of(c_sBlanks), m_sText.size()));
    std::string sWord(m_sText.substr(0, m_sText.find_first_of(c_sBlanks)));
    m_sText.remove_prefix(sWord.size());
    return sWord;
}
