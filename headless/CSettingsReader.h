#pragma once

#include "classes/core/CColour.h"
#include "classes/core/CWString.h"

#include <cstdint>
#include <string>

class CIniText;

// Reads the keys of a settings file, or their defaults where there is no file. Throws CHeadlessError, naming file,
// line and key, for a number that is out of range.
class CSettingsReader
{
public:
    // sFile is the file's name in messages; pFile may be null and is not owned.
    CSettingsReader(std::string sFile, const CIniText* pFile);

    bool HasFile() const { return m_pFile != nullptr; }

    int GetNumber(const wchar_t* sKey, int defaultValue, int low, int high) const;

    // Only the low 8 bits of the number count.
    std::uint8_t GetByte(const wchar_t* sKey, std::uint8_t uDefault, std::uint8_t uLow, std::uint8_t uHigh) const;

    ColourRef GetColour(const wchar_t* sKey, ColourRef defaultColour) const;

    CWString GetFactor(const wchar_t* sKey, const wchar_t* sDefault) const;

    // Throws with the file, the line of the key where it has one, and the key.
    [[noreturn]] void Fail(const wchar_t* sKey, const std::string& sWhat) const;

private:
    std::int32_t GetInt(const wchar_t* sKey, std::int32_t defaultValue) const;
    void CheckRange(const wchar_t* sKey, std::int64_t value, std::int64_t low, std::int64_t high) const;

    std::string m_sFile;
    const CIniText* m_pFile;
};
