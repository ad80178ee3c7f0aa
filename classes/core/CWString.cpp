#include "classes/core/CWString.h"

#include <algorithm>

namespace
{

wchar_t FoldCase(wchar_t c)
{
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

int ToIndex(std::size_t uPosition)
{
    return uPosition == std::wstring::npos ? -1 : static_cast<int>(uPosition);
}

} // namespace

int CWString::Find(std::wstring_view sWhat, int iStart) const
{
    return ToIndex(m_sText.find(sWhat, static_cast<std::size_t>(std::max(iStart, 0))));
}

int CWString::FindLast(std::wstring_view sWhat) const
{
    return ToIndex(m_sText.rfind(sWhat));
}

CWString& CWString::Erase(int iStart, int iCount)
{
    const int iLength = GetLength();
    const int iFirst = std::clamp(iStart, 0, iLength);
    // Positions before the text count towards iCount, so a negative start removes fewer characters. 64 bits cannot
    // overflow here.
    const std::int64_t llEnd = iCount < 0 ? iLength : std::int64_t{iStart} + iCount;
    const int iEnd = static_cast<int>(std::clamp<std::int64_t>(llEnd, iFirst, iLength));
    m_sText.erase(static_cast<std::size_t>(iFirst), static_cast<std::size_t>(iEnd - iFirst));
    return *this;
}

int CWString::CompareNoCase(std::wstring_view sOther) const
{
    const std::size_t uShared = std::min(m_sText.size(), sOther.size());
    for (std::size_t u = 0; u < uShared; ++u)
    {
        const wchar_t cFirst = FoldCase(m_sText[u]);
        const wchar_t cSecond = FoldCase(sOther[u]);
        if (cFirst != cSecond)
        {
            return cFirst < cSecond ? -1 : 1;
        }
    }
    if (m_sText.size() == sOther.size())
    {
        return 0;
    }
    return m_sText.size() < sOther.size() ? -1 : 1;
}

CWString operator+(const CWString& sFirst, std::wstring_view sSecond)
{
    CWString sSum(sFirst);
    sSum += sSecond;
    return sSum;
}
