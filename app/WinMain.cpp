#include "app/CKinetarium.h"
#include "app/LibrarySettings_Kinetarium.h"
#include "app/VersionLine.h"
#include "classes/core/CCpuCapabilities.h"
#include "classes/core/CExceptionHandler.h"
#include "classes/core/CrashNote.h"
#include "classes/core/EnvironmentText.h"
#include "classes/core/OutputDebugMessage.h"
#include "classes/windows/crash/CCrashReport.h"
#include "classes/windows/system/ModuleFolder.h"
#include "classes/windows/system/ProfileFile.h"
#include "diagnostics/Guard.h"

#include <windows.h>

#include <string_view>

namespace
{
// Read before anything that depends on it runs.
const CCpuCapabilities s_CpuCapabilities;

void WriteProfileIfAsked()
{
    if (GetEnvironmentText("KINETARIUM_PROFILE") == L"1" &&
        !WriteProfile(GetModuleFolder() + L"Kinetarium-profile.txt"))
    {
        OutputDebugMessage(nullptr, L"The profile cannot be written\n");
    }
}
} // namespace

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE, PWSTR sArguments, int)
{
    if (std::wstring_view(sArguments) == L"--version")
    {
        WriteVersionLine();
        return 0;
    }
    SetLibrarySettings(GetLibrarySettings_Kinetarium());
    Guarded({nullptr, __TIMESTAMP__}, [&] {
        const CExceptionHandler exceptionHandler(nullptr, false);
        const CCrashReport crashReport({GetModuleFolder().Get(), KINETARIUM_VERSION, __TIMESTAMP__});
        SetCrashNote("no simulation so far");
        const CKinetarium application(nullptr, hInstance);
    });
    // All profiling scopes are closed only now.
    Guarded({nullptr, __TIMESTAMP__}, [] { WriteProfileIfAsked(); });
    return 0;
}
