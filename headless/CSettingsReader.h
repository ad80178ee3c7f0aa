#pragma once

#include "settings/CIniText.h"
#include "settings/SettingRows.h"

#include <string>

// Reads settings from a file, or uses their defaults if there is no file. If a number is out of range, throws
// CHeadlessError with file, line and key.
class CSettingsReader
{
public:
    // sFile is the file's name in messages; pFile may be null and is not owned.
    CSettingsReader(std::string sFile, const CIniText* pFile);

    void Read(const CSettingRow& row, CSettings& settings) const;

    // Throws CHeadlessError with the file, the line of the setting if it is in the file, and its name.
    [[noreturn]] void Fail(const CSettingRow& row, const std::string& sWhat) const;

private:
    std::string m_sFile;
    const CIniText& m_File;
};
