#include "classes/core/CLibrarySettings.h"
#include "classes/sample/CSampleWindow.h"

#include <windows.h>

#include <array>

namespace
{
constexpr std::array<unsigned, 1> c_MainWindowKeys{VK_ESCAPE}; // closes the window
} // namespace

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE, PWSTR, int)
{
    CLibrarySettings settings;
    settings.sProgramName = "Teapot";
    settings.mainWindowKeys = c_MainWindowKeys;
    SetLibrarySettings(settings);
    CSampleWindow window;
    if (!window.Create(hInstance))
    {
        return 1;
    }
    window.Run();
    return 0;
}
