#pragma once

#include "classes/core/CWString.h"

#include <cstdint>

// Where settings are read from: the section "Settings" of a file, one key at a time. Reading never fails.
class ISettingsStore
{
public:
    virtual ~ISettingsStore() = default;

    // The number that the value begins with, 0 where it begins with none; the default where the key is missing.
    virtual std::int32_t ReadNumber(const wchar_t* sKey, std::int32_t defaultValue) const = 0;

    // At most SettingsFile::c_uMostTextCharacters characters of the value; the default where the key is missing. An
    // empty value is empty.
    virtual CWString ReadText(const wchar_t* sKey, const wchar_t* sDefault) const = 0;
};
