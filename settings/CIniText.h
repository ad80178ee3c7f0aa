#pragma once

#include "settings/ISettingsStore.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// One "key=value" line of a settings file.
struct CIniEntry
{
    std::wstring key;
    std::wstring value;    // without the blanks around it, otherwise as in the file
    bool bHasValue{};      // false: the line has no "="
    std::uint64_t uLine{}; // counted from 1
};

// A settings file, read as the profile functions of Windows read it, for systems without these functions. Names are
// compared without regard to case. Of several sections or keys with the same name, the first one wins. One pair of
// quotation marks around a value is dropped. No content is an error. As a store of settings it reads the section
// "Settings".
class CIniText final : public ISettingsStore
{
public:
    // An empty file: every setting has its default.
    CIniText() : CIniText(std::string_view()) {}

    // The bytes of the whole file. They are UTF-16 (little endian) if they begin with FF FE. Otherwise an optional
    // UTF-8 mark is skipped and each byte is one character, which is right for everything that is read here.
    explicit CIniText(std::string_view sBytes);

    // The line of a key; null if there is none.
    const CIniEntry* Find(std::wstring_view sSection, std::wstring_view sKey) const;

    // At most uMaxLength characters of the value; the default if the key is missing. An empty value stays empty.
    std::wstring GetString(std::wstring_view sSection, std::wstring_view sKey, std::wstring_view sDefault,
                           std::size_t uMaxLength) const;

    // The number at the beginning of the value: a sign, then decimal digits, or hexadecimal ones after "0x", octal ones
    // after "0o", binary ones after "0b". 0 if the value begins with no number; the default if the key is missing or
    // the value is empty. Numbers are taken modulo 2^32.
    std::int32_t GetInt(std::wstring_view sSection, std::wstring_view sKey, std::int32_t defaultValue) const;

    std::int32_t ReadNumber(const wchar_t* sKey, std::int32_t defaultValue) const override;
    CWString ReadText(const wchar_t* sKey, const wchar_t* sDefault) const override;

private:
    struct CSection
    {
        std::wstring name;
        std::vector<CIniEntry> entries;
    };

    void AddLine(std::wstring_view sLine, std::uint64_t uLine);

    std::vector<CSection> m_Sections;
};
