#pragma once

#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

// One argument of FormatPrintf: keeps the width and sign of integers, because "%x" prints the bits of that width. Texts
// are referenced, not copied.
class CPrintfArgument
{
public:
    using Value = std::variant<std::int32_t, std::uint32_t, std::int64_t, std::uint64_t, double, wchar_t,
                               std::wstring_view, const void*>;

    template<class T>
    requires std::integral<T> CPrintfArgument(T value) : m_Value(FromIntegral(value)) {}

    CPrintfArgument(float fValue) : m_Value(static_cast<double>(fValue)) {}
    CPrintfArgument(double dValue) : m_Value(dValue) {}
    CPrintfArgument(const wchar_t* sText) : m_Value(sText != nullptr ? std::wstring_view(sText) : L"(null)") {}
    CPrintfArgument(const void* pAddress) : m_Value(pAddress) {}

    // Narrow text is refused: "%s" could not know its encoding and would print an address. Convert it with Utf8.h.
    CPrintfArgument(const char* sText) = delete;

    // Every wide text class: std::wstring, std::wstring_view, CWString.
    template<class T>
    requires(std::convertible_to<const T&, std::wstring_view> && !std::convertible_to<const T&, const wchar_t*>)
        CPrintfArgument(const T& text)
        : m_Value(static_cast<std::wstring_view>(text))
    {
    }

    const Value& Get() const { return m_Value; }

private:
    template<class T>
    static Value FromIntegral(T value)
    {
        constexpr std::size_t uLongestOfInt = sizeof(std::int32_t);
        if constexpr (std::same_as<T, wchar_t>)
        {
            return value;
        }
        else if constexpr (sizeof(T) > uLongestOfInt)
        {
            return static_cast<std::conditional_t<std::is_signed_v<T>, std::int64_t, std::uint64_t>>(value);
        }
        else
        {
            return static_cast<std::conditional_t<std::is_signed_v<T>, std::int32_t, std::uint32_t>>(value);
        }
    }

    Value m_Value;
};

// Formats like a wide printf whose "%s" is wide, the same on every platform; "%I64u", "%I64i", "%I64d", "%I64x" (and
// "%I32...") are understood everywhere. Ignores the locale. Throws an exception derived from std::runtime_error if the
// format is malformed, or if an argument is missing or of another kind.
std::wstring FormatPrintf(std::wstring_view sFormat, std::span<const CPrintfArgument> arguments);
