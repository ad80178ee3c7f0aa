#include "headless/report/RepeatCommand.h"

#include "classes/core/Utf8.h"
#include "headless/console/NumberText.h"
#include "headless/options/HexadecimalText.h"
#include "headless/options/StartText.h"
#include "headless/report/RunResults.h"
#include "settings/CSettings.h"

#include <algorithm>
#include <string_view>

namespace
{

constexpr std::string_view c_sPlainLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+=./:";

// PowerShell takes these for a single quotation mark too.
constexpr std::string_view c_SingleMarks[] = {"'", "\u2018", "\u2019", "\u201A", "\u201B"};
constexpr std::string_view c_DoubleMarks[] = {"\u201C", "\u201D", "\u201E"};

// A comma makes a list in PowerShell.
bool IsPlain(std::string sText, EnumShell eShell)
{
    if (eShell == EnumShell::Posix)
    {
        std::replace(sText.begin(), sText.end(), ',', '.');
    }
    return !sText.empty() && sText.find_first_not_of(c_sPlainLetters) == std::string::npos;
}

bool Contains(std::string_view sText, std::string_view sPart)
{
    return sText.find(sPart) != std::string_view::npos;
}

std::string ReplaceAll(std::string sText, std::string_view sOld, std::string_view sNew)
{
    for (std::size_t u = sText.find(sOld); u != std::string::npos; u = sText.find(sOld, u + sNew.size()))
    {
        sText.replace(u, sOld.size(), sNew);
    }
    return sText;
}

std::string Enclose(std::string_view sBefore, std::string_view sText, std::string_view sBehind)
{
    return std::string(sBefore).append(sText).append(sBehind);
}

std::string QuoteForPosix(const std::string& sText)
{
    if (EscapeUnprintable(sText) == sText)
    {
        return Enclose("'", ReplaceAll(sText, "'", "'\\''"), "'");
    }
    const std::string sEscaped = ReplaceAll(ReplaceAll(sText, "\\", "\\\\"), "'", "\\'");
    return Enclose("$'", EscapeUnprintable(sEscaped), "'");
}

// Both shells of Windows know double quotation marks. What PowerShell would replace between them needs its single ones.
std::string QuoteForWindows(const std::string& sText)
{
    const bool bReplaced = sText.find_first_of("$`%\"") != std::string::npos ||
                           std::any_of(std::begin(c_DoubleMarks), std::end(c_DoubleMarks),
                                       [&sText](std::string_view sMark) { return Contains(sText, sMark); });
    if (!bReplaced)
    {
        return Enclose("\"", sText, "\"");
    }
    std::string sQuoted = sText;
    for (const std::string_view sMark : c_SingleMarks)
    {
        sQuoted = ReplaceAll(sQuoted, sMark, std::string(sMark).append(sMark));
    }
    return Enclose("'", sQuoted, "'");
}

class CCommand
{
public:
    explicit CCommand(EnumShell eShell) : m_eShell(eShell) {}

    void Add(const std::string& sOption, const std::string& sValue)
    {
        // A value that looks like an option has to be in one word with its own.
        const bool bLikeOption = sValue.size() > 1 && sValue.front() == '-';
        m_sText += ' ' + sOption + (bLikeOption ? '=' : ' ') + QuoteForShell(sValue, m_eShell);
    }

    template<class T>
    void AddNumber(const std::string& sOption, T value)
    {
        Add(sOption, std::to_string(value));
    }

    const std::string& GetText() const { return m_sText; }

private:
    EnumShell m_eShell;
    std::string m_sText = "kinetarium-headless";
};

void AddStart(CCommand& command, const CSettings& settings, const std::string& sStart)
{
    const std::optional<std::string> sFile = GetStartFile(sStart);
    if (sFile)
    {
        command.Add("--load-state", *sFile);
        return;
    }
    command.AddNumber("--atoms", settings.atoms);
    command.AddNumber("--min-radius", settings.minRadius);
    command.AddNumber("--max-radius", settings.maxRadius);
    if (sStart != c_sRandomStart)
    {
        command.Add("--start-at", sStart);
    }
}

void AddColours(CCommand& command, const CSettings& settings)
{
    std::string sColours;
    std::string sFactors;
    for (std::size_t u = 0; u < settings.colours.size(); ++u)
    {
        const char* const sComma = u == 0 ? "" : ",";
        sColours.append(sComma).append(TextOfColour(settings.colours[u]));
        sFactors.append(sComma).append(Utf8FromWide(settings.factors[u].GetText().Get()));
    }
    command.Add("--colour-mode", settings.eMode == EnumAtomColourMode::Speed ? "speed" : "fixed");
    command.Add("--colours", sColours);
    command.Add("--factors", sFactors);
    command.Add("--background", TextOfColour(settings.background));
}

} // namespace

std::string QuoteForShell(const std::string& sText, EnumShell eShell)
{
    if (IsPlain(sText, eShell))
    {
        return sText;
    }
    return eShell == EnumShell::Windows ? QuoteForWindows(sText) : QuoteForPosix(sText);
}

std::string MakeRepeatCommand(const CSettings& settings, const CRunResults& results, EnumShell eShell)
{
    CCommand command(eShell);
    command.AddNumber("--seed", results.seed);
    command.AddNumber("--iterations", results.iterations);
    command.AddNumber("--width", settings.world.cx);
    command.AddNumber("--height", settings.world.cy);
    AddStart(command, settings, results.start);
    AddColours(command, settings);
    return command.GetText();
}
