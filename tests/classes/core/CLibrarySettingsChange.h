#pragma once

#include "classes/core/CLibrarySettings.h"

// Other library settings for as long as the object lives.
class CLibrarySettingsChange
{
public:
    explicit CLibrarySettingsChange(const CLibrarySettings& settings) : m_Previous(SetLibrarySettings(settings)) {}
    ~CLibrarySettingsChange() { SetLibrarySettings(m_Previous); }
    CLibrarySettingsChange(const CLibrarySettingsChange&) = delete;
    CLibrarySettingsChange& operator=(const CLibrarySettingsChange&) = delete;

private:
    CLibrarySettings m_Previous;
};
