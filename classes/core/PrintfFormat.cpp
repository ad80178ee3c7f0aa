#include "classes/core/PrintfFormat.h"

#include <fmt/args.h>
#include <fmt/printf.h>
#include <fmt/xchar.h>

namespace
{

using PrintfContext = fmt::basic_printf_context<wchar_t>;

// All characters that may stand between "%" and the length modifier: flags, width, precision, argument number.
constexpr std::wstring_view c_sFlagsWidthPrecision = L"-+ #0123456789.*$";

struct CLengthModifier
{
    std::wstring_view sMicrosoft;
    std::wstring_view sStandard;
};

constexpr CLengthModifier c_LengthModifiers[] = {{L"I64", L"ll"}, {L"I32", L""}};

// The format with the length modifiers of Microsoft's printf written as those of the C standard.
std::wstring TranslateLengthModifiers(std::wstring_view sFormat)
{
    std::wstring sResult;
    sResult.reserve(sFormat.size());
    std::size_t uAt = 0;
    const auto copyTo = [&](std::size_t uEnd) {
        sResult += sFormat.substr(uAt, uEnd - uAt);
        uAt = uEnd;
    };
    while (uAt < sFormat.size())
    {
        copyTo(std::min(sFormat.find(L'%', uAt), sFormat.size()));
        if (sFormat.substr(uAt).starts_with(L"%%"))
        {
            copyTo(uAt + std::wstring_view(L"%%").size());
            continue;
        }
        // Skips the "%", if there is one, and everything up to the modifier.
        copyTo(std::min(sFormat.find_first_not_of(c_sFlagsWidthPrecision, std::min(uAt + 1, sFormat.size())),
                        sFormat.size()));
        for (const CLengthModifier& modifier : c_LengthModifiers)
        {
            if (!sFormat.substr(uAt).starts_with(modifier.sMicrosoft))
            {
                continue;
            }
            sResult += modifier.sStandard;
            uAt += modifier.sMicrosoft.size();
            break;
        }
    }
    return sResult;
}

} // namespace

std::wstring FormatPrintf(std::wstring_view sFormat, std::span<const CPrintfArgument> arguments)
{
    fmt::dynamic_format_arg_store<PrintfContext> store;
    for (const CPrintfArgument& argument : arguments)
    {
        std::visit([&store](const auto& value) { store.push_back(value); }, argument.Get());
    }
    const std::wstring sStandard = TranslateLengthModifiers(sFormat);
    return fmt::vsprintf(fmt::basic_string_view<wchar_t>(sStandard), fmt::basic_format_args<PrintfContext>(store));
}
