#pragma once

#include <source_location>

#ifdef __cpp_lib_source_location

// The place of a call in the source: file, line, and the full signature of the function.
using CSourceLocation = std::source_location;

#else

#include <cstdint>

// The same for standard libraries without std::source_location. Here function_name() is the bare name.
class CSourceLocation
{
public:
    static constexpr CSourceLocation current(const char* sFile = __builtin_FILE(),
                                             std::uint_least32_t uLine = __builtin_LINE(),
                                             const char* sFunction = __builtin_FUNCTION()) noexcept
    {
        return CSourceLocation(sFile, uLine, sFunction);
    }

    constexpr CSourceLocation() noexcept = default;

    constexpr const char* file_name() const noexcept { return m_sFile; }
    constexpr std::uint_least32_t line() const noexcept { return m_uLine; }
    constexpr const char* function_name() const noexcept { return m_sFunction; }

private:
    constexpr CSourceLocation(const char* sFile, std::uint_least32_t uLine, const char* sFunction) noexcept
        : m_sFile(sFile), m_sFunction(sFunction), m_uLine(uLine)
    {
    }

    const char* m_sFile = "";
    const char* m_sFunction = "";
    std::uint_least32_t m_uLine = 0;
};

#endif
