#include "headless/options/CSettingsReader.h"

#include "classes/core/Utf8.h"
#include "headless/console/HeadlessError.h"
#include "headless/console/NumberText.h"
#include "settings/SettingsFile.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace
{

const CIniText& GetEmptyFile()
{
    static const CIniText file;
    return file;
}

// The checks return the allowed values, or nothing if the text is one of them.

std::string CheckNumber(const CSettingRow& row, const std::wstring& sText)
{
    const std::optional<std::uint64_t> uNumber = ParseWholeNumber(Utf8FromWide(sText));
    const bool bAllowed = uNumber && *uNumber >= static_cast<std::uint64_t>(row.range.low) &&
                          *uNumber <= static_cast<std::uint64_t>(row.range.high);
    return bAllowed ? std::string()
                    : "a whole number from " + std::to_string(row.range.low) + " to " + std::to_string(row.range.high);
}

std::string CheckFactor(const std::wstring& sText)
{
    if (sText.size() > SettingsFile::c_uMostTextCharacters)
    {
        return "a text of at most " + std::to_string(SettingsFile::c_uMostTextCharacters) + " characters";
    }
    const CFactor factor{CWString(sText)};
    return (factor.IsSet() && !factor.HasValue()) || factor.IsBelowZero() ? c_sAllowedFactor : std::string();
}

} // namespace

CSettingsReader::CSettingsReader(std::string sFile, const CIniText* pFile)
    : m_sFile(std::move(sFile)), m_File(pFile != nullptr ? *pFile : GetEmptyFile())
{
}

bool CSettingsReader::Has(const CSettingRow& row) const
{
    return m_File.Find(SettingsFile::c_sSection, row.sFileKey) != nullptr;
}

void CSettingsReader::Read(const CSettingRow& row, CSettings& settings) const
{
    if (Has(row))
    {
        const std::wstring sText = m_File.GetString(SettingsFile::c_sSection, row.sFileKey, {}, std::wstring::npos);
        const std::string sAllowed =
            row.eType == EnumSettingType::Factor ? CheckFactor(sText) : CheckNumber(row, sText);
        if (!sAllowed.empty())
        {
            Fail(row, Quote(Utf8FromWide(sText)) + " is not allowed; allowed is " + sAllowed);
        }
    }
    ReadSetting(m_File, row, settings);
}

void CSettingsReader::Fail(const CSettingRow& row, const std::string& sWhat) const
{
    const CIniEntry* const pEntry = m_File.Find(SettingsFile::c_sSection, row.sFileKey);
    const std::string sLine = pEntry != nullptr ? ", line " + std::to_string(pEntry->uLine) : "";
    throw CHeadlessError(m_sFile + sLine + ", " + Utf8FromWide(row.sFileKey) + ": " + sWhat);
}
