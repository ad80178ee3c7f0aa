#pragma once

#include "classes/core/CWString.h"

#include <cstdint>

// A source of settings: the section "Settings" of a file, read one key at a time. Reading never fails.
class ISettingsStore
{
public:
    virtual ~ISettingsStore() = default;

    // The number at the beginning of the value, 0 if it begins with none; the default if the key is missing.
    virtual std::int32_t ReadNumber(const wchar_t* sKey, std::int32_t defaultValue) const = 0;

    // At most SettingsFile::c_uMostTextCharacters characters of the value; the default if the key is missing. An empty
    // value stays empty.
    virtual CWString ReadText(const wchar_t* sKey, const wchar_t* sDefault) const = 0;
};
