#include "classes/windows/system/ProfileFile.h"

#include "classes/core/CKernelHandle.h"
#include "classes/core/CProfile.h"
#include "classes/windows/system/Handles.h"

#include <windows.h>

#include <string>

namespace
{
bool WriteText(const CWString& sPath, const std::string& sText)
{
    const CKernelHandle hFile(
        CreateFileW(sPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD dwWritten = 0;
    return hFile && WriteFile(hFile.Get(), sText.data(), static_cast<DWORD>(sText.size()), &dwWritten, nullptr) != 0 &&
           dwWritten == sText.size() && FlushFileBuffers(hFile.Get()) != 0;
}
} // namespace

bool WriteProfile(const CWString& sPath)
{
    const CWString sTemporary = sPath + L".tmp";
    const bool bWritten = WriteText(sTemporary, CProfile::FormatTable(CProfile::GetTable())) &&
                          MoveFileExW(sTemporary.c_str(), sPath.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
    if (!bWritten)
    {
        DeleteFileW(sTemporary.c_str());
    }
    return bWritten;
}
