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

// A "[name]" line and the lines below it, comments and empty lines included.
struct CIniSection
{
    std::wstring name;
    std::uint64_t uLine{}; // counted from 1; 0 for the lines before the first section, which have no name
    std::vector<CIniEntry> entries;
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

    // The bytes of the whole file. A mark at the beginning says that they are UTF-8 or UTF-16 of either byte order.
    // Without one, each byte is one character, which is right for everything that is read here. A line ends with CR, LF
    // or both.
    explicit CIniText(std::string_view sBytes);

    // In the order of the file; the first one holds the lines before any section.
    const std::vector<CIniSection>& GetSections() const { return m_Sections; }

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
    void AddLine(std::wstring_view sLine, std::uint64_t uLine);

    std::vector<CIniSection> m_Sections;
};
