#include "headless/CSettingsReader.h"

#include "classes/core/Utf8.h"
#include "headless/HeadlessError.h"
#include "settings/SettingsFile.h"

#include <utility>

namespace
{

const CIniText& GetEmptyFile()
{
    static const CIniText file;
    return file;
}

} // namespace

CSettingsReader::CSettingsReader(std::string sFile, const CIniText* pFile)
    : m_sFile(std::move(sFile)), m_File(pFile != nullptr ? *pFile : GetEmptyFile())
{
}

void CSettingsReader::Read(const CSettingRow& row, CSettings& settings) const
{
    ReadSetting(m_File, row, settings);
    if (row.eType == EnumSettingType::Factor)
    {
        return;
    }
    const std::int64_t number = GetNumber(row, settings);
    if (number < row.range.low || number > row.range.high)
    {
        Fail(row, std::to_string(number) + " is out of range; allowed is " + std::to_string(row.range.low) + " to " +
                      std::to_string(row.range.high));
    }
}

void CSettingsReader::Fail(const CSettingRow& row, const std::string& sWhat) const
{
    const CIniEntry* const pEntry = m_File.Find(SettingsFile::c_sSection, row.sFileKey);
    const std::string sLine = pEntry != nullptr ? ", line " + std::to_string(pEntry->uLine) : "";
    throw CHeadlessError(m_sFile + sLine + ", " + Utf8FromWide(row.sFileKey) + ": " + sWhat);
}
