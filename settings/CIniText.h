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
    std::wstring value;    // without the blanks around it, otherwise as it stands in the file
    bool bHasValue{};      // false: the line has no "="
    std::uint64_t uLine{}; // counted from 1
};

// A settings file as the profile functions of Windows read it, for systems that have none: names count without regard
// to case, of sections and of keys with the same name the first one wins, one pair of quotation marks around a value
// is dropped, and nothing is ever an error. As a store of settings it reads the section "Settings".
class CIniText final : public ISettingsStore
{
public:
    // A file that holds nothing: every setting has its default.
    CIniText() : CIniText(std::string_view()) {}

    // The whole file: UTF-16 (little endian) where it begins with FF FE; else one character per byte, which is right
    // for everything that is read here, after an optional UTF-8 mark.
    explicit CIniText(std::string_view sBytes);

    // The line that holds a key, null if none does.
    const CIniEntry* Find(std::wstring_view sSection, std::wstring_view sKey) const;

    // At most uMaxLength characters of the value; the default where the key is missing. A value that is there and
    // empty is empty.
    std::wstring GetString(std::wstring_view sSection, std::wstring_view sKey, std::wstring_view sDefault,
                           std::size_t uMaxLength) const;

    // The number that the value begins with (a sign, then decimal digits, or hexadecimal ones after "0x", octal ones
    // after "0o", binary ones after "0b"), 0 where it begins with none, and the default where the key is missing or
    // empty. Numbers are taken modulo 2^32.
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
