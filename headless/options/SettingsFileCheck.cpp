#include "headless/options/SettingsFileCheck.h"

#include "classes/core/CWString.h"
#include "classes/core/Utf8.h"
#include "headless/console/HeadlessError.h"
#include "headless/console/NearestName.h"
#include "headless/console/NumberText.h"
#include "settings/CIniText.h"
#include "settings/SettingRows.h"
#include "settings/SettingsFile.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace
{

std::vector<std::wstring_view> GetKnownKeys()
{
    std::vector<std::wstring_view> keys;
    for (const CSettingRow& row : c_SettingRows)
    {
        keys.emplace_back(row.sFileKey);
    }
    keys.insert(keys.end(), SettingsFile::c_sWindowKeys.begin(), SettingsFile::c_sWindowKeys.end());
    return keys;
}

bool AreSameNames(std::wstring_view sFirst, std::wstring_view sSecond)
{
    return CWString(sFirst).CompareNoCase(sSecond) == 0;
}

bool IsEmptyOrComment(const CIniEntry& entry)
{
    return entry.key.starts_with(L';') || (entry.key.empty() && !entry.bHasValue);
}

std::string QuoteWide(std::wstring_view sText)
{
    return Quote(Utf8FromWide(sText));
}

std::string GetHeader()
{
    return '[' + Utf8FromWide(SettingsFile::c_sSection) + ']';
}

std::string DescribeUnknown(std::wstring_view sKey)
{
    const std::vector<std::wstring_view> keys = GetKnownKeys();
    const std::string sWhat = "the key " + QuoteWide(sKey) + " is unknown; ";
    const std::wstring_view sNearest = FindNearestName(sKey, keys);
    if (!sNearest.empty())
    {
        return sWhat + "the nearest known one is " + Utf8FromWide(sNearest);
    }
    std::string sKnown;
    for (const std::wstring_view sName : keys)
    {
        sKnown.append(sKnown.empty() ? "" : ", ").append(Utf8FromWide(sName));
    }
    return sWhat + "known are " + sKnown;
}

class CFileCheck
{
public:
    CFileCheck(const std::string& sFile, const CIniText& file) : m_sFile(sFile), m_File(file) {}

    void Check() const
    {
        const CIniSection& settings = FindSection();
        CheckBeforeSections();
        for (auto entry = settings.entries.begin(); entry != settings.entries.end(); ++entry)
        {
            if (!IsEmptyOrComment(*entry))
            {
                CheckKey(*entry);
                CheckFirst(settings.entries.begin(), entry);
            }
        }
    }

private:
    using CEntryIterator = std::vector<CIniEntry>::const_iterator;

    const CIniSection& FindSection() const
    {
        const CIniSection* pFound = nullptr;
        for (const CIniSection& section : m_File.GetSections())
        {
            if (section.uLine == 0 || !AreSameNames(section.name, SettingsFile::c_sSection))
            {
                continue;
            }
            if (pFound != nullptr)
            {
                Fail(section.uLine, "this is a second section " + GetHeader() + "; allowed is one, which is on line " +
                                        std::to_string(pFound->uLine));
            }
            pFound = &section;
        }
        if (pFound == nullptr)
        {
            throw CHeadlessError(m_sFile + ": there is no section " + GetHeader() +
                                 "; allowed is a settings file as the window writes it");
        }
        return *pFound;
    }

    void CheckBeforeSections() const
    {
        for (const CIniEntry& entry : m_File.GetSections().front().entries)
        {
            if (!IsEmptyOrComment(entry))
            {
                Fail(entry.uLine,
                     QuoteWide(entry.key) + " stands before any section; settings are allowed below " + GetHeader());
            }
        }
    }

    void CheckKey(const CIniEntry& entry) const
    {
        if (!entry.bHasValue)
        {
            Fail(entry.uLine, QuoteWide(entry.key) + " is no setting; allowed is key=value, or a comment after ;");
        }
        const std::vector<std::wstring_view> keys = GetKnownKeys();
        if (std::none_of(keys.begin(), keys.end(),
                         [&entry](std::wstring_view sKey) { return AreSameNames(sKey, entry.key); }))
        {
            Fail(entry.uLine, DescribeUnknown(entry.key));
        }
    }

    void CheckFirst(CEntryIterator begin, CEntryIterator entry) const
    {
        const auto first = std::find_if(
            begin, entry, [&entry](const CIniEntry& earlier) { return AreSameNames(earlier.key, entry->key); });
        if (first != entry)
        {
            Fail(entry->uLine, "the key " + QuoteWide(entry->key) + " is given a second time; the first is on line " +
                                   std::to_string(first->uLine));
        }
    }

    [[noreturn]] void Fail(std::uint64_t uLine, const std::string& sWhat) const
    {
        throw CHeadlessError(m_sFile + ", line " + std::to_string(uLine) + ": " + sWhat);
    }

    const std::string& m_sFile;
    const CIniText& m_File;
};

} // namespace

void CheckSettingsFile(const std::string& sFile, const CIniText& file)
{
    CFileCheck(sFile, file).Check();
}
