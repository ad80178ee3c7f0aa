#include "classes/core/SystemMessage.h"

#include "classes/core/CLibrarySettings.h"
#include "classes/core/Utf8.h"

#include <atomic>
#include <cstdio>

#ifdef _WIN32
#include <windows.h>
#endif

namespace
{

std::atomic<SystemMessageFunction> g_pFunction{};

void ShowToUser(const std::wstring& sText)
{
#ifdef _WIN32
    const std::wstring sTitle = WideFromUtf8(GetLibrarySettings().sProgramName);
    MessageBoxW(nullptr, sText.c_str(), sTitle.c_str(), MB_OK | MB_ICONERROR | MB_TASKMODAL | MB_SETFOREGROUND);
#else
    const std::string sNarrow = Utf8FromWide(sText + L"\n");
    // If this fails, there is nowhere left to report it.
    static_cast<void>(std::fwrite(sNarrow.data(), 1, sNarrow.size(), stderr));
#endif
}

} // namespace

void ShowSystemMessage(const std::wstring& sText)
{
    const SystemMessageFunction pFunction = g_pFunction.load();
    if (pFunction != nullptr)
    {
        pFunction(sText);
    }
    else
    {
        ShowToUser(sText);
    }
}

SystemMessageFunction SetSystemMessageFunction(SystemMessageFunction pFunction)
{
    return g_pFunction.exchange(pFunction);
}
