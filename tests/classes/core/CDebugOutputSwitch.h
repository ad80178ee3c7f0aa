#pragma once

#include "tests/classes/core/CEnvironmentChange.h"
#include "tests/classes/core/CLibrarySettingsChange.h"

// For as long as it lives, the library knows a variable that sends the debug output to the standard error stream, and
// the variable has that value (null: it is not set).
class CDebugOutputSwitch
{
public:
    explicit CDebugOutputSwitch(const char* sValue) : m_Settings(GetSettings()), m_Variable(c_sVariable, sValue) {}

private:
    static constexpr const char* c_sVariable = "CLASSES_TEST_DEBUG_OUTPUT";

    static CLibrarySettings GetSettings()
    {
        CLibrarySettings settings;
        settings.sDebugOutputVariable = c_sVariable;
        return settings;
    }

    CLibrarySettingsChange m_Settings;
    CEnvironmentChange m_Variable;
};
