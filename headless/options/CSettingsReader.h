#pragma once

#include "settings/CIniText.h"
#include "settings/SettingRows.h"

#include <string>

// The factors that a file or an option may give, for messages.
constexpr const char* c_sAllowedFactor = "a number from 0 on, in fixed mode also a percentage like 12.34%";

// Reads settings from a file, or uses their defaults if there is no file. Where the window would take another value
// than the file says (a number in a longer text or out of range, a text that is cut), throws CHeadlessError with file,
// line, key, value and the allowed ones.
class CSettingsReader
{
public:
    // sFile is the file's name in messages; pFile may be null and is not owned.
    CSettingsReader(std::string sFile, const CIniText* pFile);

    // Whether the file gives the setting.
    bool Has(const CSettingRow& row) const;

    void Read(const CSettingRow& row, CSettings& settings) const;

    // Throws CHeadlessError with the file, the line of the setting if it is in the file, and its name.
    [[noreturn]] void Fail(const CSettingRow& row, const std::string& sWhat) const;

private:
    std::string m_sFile;
    const CIniText& m_File;
};
