#include "app/LibrarySettings_Kinetarium.h"

#include "diagnostics/DebugOutputVariable.h"
#include "strings/Languages.h"

#include <windows.h>

#include <array>

namespace
{
// F11 toggles full screen; Escape leaves it.
constexpr std::array<unsigned, 2> c_MainWindowKeys{VK_F11, VK_ESCAPE};

constexpr ColourRef c_crLightSage = MakeColour(0xC8, 0xD8, 0xD0);
} // namespace

CLibrarySettings GetLibrarySettings_Kinetarium() noexcept
{
    CLibrarySettings settings;
    settings.sProgramName = "Kinetarium";
    settings.sLanguageVariable = "KINETARIUM_LANGUAGE";
    settings.sDebugOutputVariable = c_sDebugOutputVariable;
    settings.pIsRightToLeft = [](unsigned char byLanguage) { return Languages_IsRightToLeft(byLanguage); };
    settings.mainWindowKeys = c_MainWindowKeys;
    settings.crButtonFace = c_crLightSage;
    return settings;
}
