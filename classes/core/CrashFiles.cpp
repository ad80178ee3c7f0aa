#include "classes/core/CrashFiles.h"

#include "classes/core/Utf8.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string_view>

namespace
{
constexpr const char* c_sMark = "-crash-";
constexpr unsigned c_uYearDigits = 4;
constexpr unsigned c_uPartDigits = 2;
constexpr std::wstring_view c_sTimePattern = L"dddddddd-dddddd"; // d stands for a digit

bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

bool MatchesTime(std::wstring_view sText)
{
    return std::equal(sText.begin(), sText.end(), c_sTimePattern.begin(), c_sTimePattern.end(),
                      [](wchar_t c, wchar_t cPattern) { return cPattern == L'd' ? IsDigit(c) : c == cPattern; });
}

// "", or "-2" to "-9".
bool MatchesAttempt(std::wstring_view sText)
{
    return sText.empty() || (sText.size() == 2 && sText[0] == L'-' && sText[1] >= L'2' && sText[1] <= L'9');
}
} // namespace

void AddCrashStem(CFixedText& text, const char* sProgram, const CCrashTime& time, unsigned uAttempt) noexcept
{
    text.Add(sProgram).Add(c_sMark);
    text.AddNumber(time.year, c_uYearDigits).AddNumber(time.month, c_uPartDigits).AddNumber(time.day, c_uPartDigits);
    text.Add("-");
    text.AddNumber(time.hour, c_uPartDigits).AddNumber(time.minute, c_uPartDigits);
    text.AddNumber(time.second, c_uPartDigits);
    if (uAttempt > 1)
    {
        text.Add("-").AddNumber(uAttempt);
    }
}

std::wstring GetCrashStem(const std::wstring& sFileName, const std::wstring& sProgram)
{
    const std::wstring sStart = sProgram + WideFromUtf8(c_sMark);
    const std::size_t uTimeEnd = sStart.size() + c_sTimePattern.size();
    for (const char* sEnding : {c_sCrashReportEnding, c_sCrashDumpEnding})
    {
        const std::wstring sWideEnding = WideFromUtf8(sEnding);
        if (sFileName.size() < uTimeEnd + sWideEnding.size())
        {
            continue;
        }
        const std::size_t uStem = sFileName.size() - sWideEnding.size();
        const std::wstring_view name(sFileName);
        if (name.substr(uStem) == sWideEnding && name.substr(0, sStart.size()) == sStart &&
            MatchesTime(name.substr(sStart.size(), c_sTimePattern.size())) &&
            MatchesAttempt(name.substr(uTimeEnd, uStem - uTimeEnd)))
        {
            return sFileName.substr(0, uStem);
        }
    }
    return {};
}

std::vector<std::wstring> ChooseCrashFilesToDelete(const std::vector<std::wstring>& names, const std::wstring& sProgram,
                                                   const std::wstring& sCurrent, std::size_t uKept)
{
    std::set<std::wstring, std::greater<>> others; // youngest first
    for (const std::wstring& sName : names)
    {
        const std::wstring sStem = GetCrashStem(sName, sProgram);
        if (!sStem.empty() && sStem != sCurrent)
        {
            others.insert(sStem);
        }
    }
    std::set<std::wstring> old;
    std::size_t uPlace = 1; // the current crash has the first place
    for (const std::wstring& sStem : others)
    {
        ++uPlace;
        if (uPlace > uKept)
        {
            old.insert(sStem);
        }
    }
    std::vector<std::wstring> chosen;
    std::copy_if(names.begin(), names.end(), std::back_inserter(chosen),
                 [&](const std::wstring& sName) { return old.count(GetCrashStem(sName, sProgram)) != 0; });
    return chosen;
}
