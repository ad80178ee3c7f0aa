#pragma once

#include "settings/CIniText.h"
#include "settings/SettingRows.h"

#include <string>

// Reads settings from a file, or their defaults where there is none. Throws CHeadlessError, naming file, line and key,
// for a number that is out of range.
class CSettingsReader
{
public:
    // sFile is the file's name in messages; pFile may be null and is not owned.
    CSettingsReader(std::string sFile, const CIniText* pFile);

    void Read(const CSettingRow& row, CSettings& settings) const;

    // Throws with the file, the line of the setting where it has one, and its name.
    [[noreturn]] void Fail(const CSettingRow& row, const std::string& sWhat) const;

private:
    std::string m_sFile;
    const CIniText& m_File;
};
