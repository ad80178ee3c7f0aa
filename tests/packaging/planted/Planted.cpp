#include <windows.h>

#include <array>
#include <string>

// Leaves a file beside itself when it is loaded.
BOOL WINAPI DllMain(HINSTANCE hLibrary, DWORD uReason, LPVOID)
{
    if (uReason == DLL_PROCESS_ATTACH)
    {
        std::array<wchar_t, MAX_PATH> path{};
        GetModuleFileNameW(hLibrary, path.data(), MAX_PATH);
        const std::wstring sMark = std::wstring(path.data()) + L".loaded";
        CloseHandle(CreateFileW(sMark.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    return TRUE;
}
