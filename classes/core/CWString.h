#pragma once

#include "classes/core/PrintfFormat.h"

#include <array>
#include <compare>
#include <concepts>
#include <string>
#include <string_view>
#include <utility>

// A wide text. Indices and lengths are in wide characters; nothing here depends on the locale.
class CWString
{
public:
    CWString() = default;
    CWString(const wchar_t* sText) : m_sText(sText != nullptr ? sText : L"") {}
    CWString(std::wstring sText) : m_sText(std::move(sText)) {}
    CWString(std::wstring_view sText) : m_sText(sText) {}

    // The number's decimal text.
    template<class T>
    requires(std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char> &&
             !std::same_as<T, wchar_t>) explicit CWString(T value)
        : m_sText(std::to_wstring(value))
    {
    }

    // Index of the first occurrence at or after iStart (a negative iStart counts as 0), -1 if there is none.
    int Find(std::wstring_view sWhat, int iStart = 0) const;

    // Index of the last occurrence, -1 if there is none.
    int FindLast(std::wstring_view sWhat) const;

    // Removes iCount characters from iStart on; a negative iCount removes all of them. The part of the range outside
    // the text is ignored.
    CWString& Erase(int iStart, int iCount = -1);

    void Clear() { m_sText.clear(); }

    CWString& operator+=(std::wstring_view sText)
    {
        m_sText += sText;
        return *this;
    }

    // Replaces the text by the formatted arguments, as FormatPrintf describes. An argument may be this very text.
    template<class... A>
    CWString& Format(const wchar_t* sFormat, const A&... args)
    {
        const std::array<CPrintfArgument, sizeof...(A)> arguments{CPrintfArgument(args)...};
        m_sText = FormatPrintf(sFormat, arguments);
        return *this;
    }

    bool IsEmpty() const { return m_sText.empty(); }
    int GetLength() const { return static_cast<int>(m_sText.size()); }
    const wchar_t* c_str() const { return m_sText.c_str(); }
    const std::wstring& Get() const { return m_sText; }
    operator std::wstring_view() const { return m_sText; }

    // Negative, zero or positive. Case is ignored for A to Z only; other characters compare by code, independent of the
    // locale.
    int CompareNoCase(std::wstring_view sOther) const;

    template<std::convertible_to<std::wstring_view> T>
    friend bool operator==(const CWString& sFirst, const T& second)
    {
        return std::wstring_view(sFirst.m_sText) == static_cast<std::wstring_view>(second);
    }

    template<std::convertible_to<std::wstring_view> T>
    friend std::strong_ordering operator<=>(const CWString& sFirst, const T& second)
    {
        return std::wstring_view(sFirst.m_sText).compare(static_cast<std::wstring_view>(second)) <=> 0;
    }

private:
    std::wstring m_sText;
};

// Concatenates the two texts.
CWString operator+(const CWString& sFirst, std::wstring_view sSecond);
