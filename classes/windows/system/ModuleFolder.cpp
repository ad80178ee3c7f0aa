#include "classes/windows/system/ModuleFolder.h"

#include <windows.h>

#include <string>

namespace
{
constexpr DWORD c_dwPathLimit = 32768; // the longest path that the system knows, in characters
} // namespace

CWString GetModuleFolder()
{
    std::wstring sPath(c_dwPathLimit, L'\0');
    sPath.resize(GetModuleFileNameW(nullptr, sPath.data(), c_dwPathLimit));

    CWString sFolder(sPath);
    const int iLastBackslash = sFolder.FindLast(L"\\");
    if (iLastBackslash < 0)
    {
        sFolder.Clear();
    }
    else
    {
        sFolder.Erase(iLastBackslash + 1);
    }
    return sFolder;
}
