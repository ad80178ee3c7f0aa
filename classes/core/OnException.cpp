#include "classes/core/OnException.h"

#include "classes/core/CWString.h"
#include "classes/core/ExceptionText.h"
#include "classes/core/OutputDebugMessage.h"
#include "classes/core/SystemMessage.h"
#include "classes/core/Utf8.h"

namespace
{

std::wstring ToWide(const char* sText)
{
    return sText != nullptr ? WideFromUtf8(sText) : std::wstring(L"?");
}

} // namespace

void OnException(std::wstring* pDebugLog, const char* sFile, unsigned uLine, const char* sFunction,
                 const char* sBuildTimeStamp, const wchar_t* sExtra, bool bShow) noexcept
{
    try
    {
        CWString sReport;
        sReport.Format(L"Exception: %s in %s - Line %u - File %s (%s)", DescribeCurrentException(), ToWide(sFunction),
                       uLine, ToWide(sFile), ToWide(sBuildTimeStamp));
        if (sExtra != nullptr)
        {
            sReport += std::wstring(L": ") + sExtra;
        }
        WriteDebugText(pDebugLog, sReport + L"\n");
        if (bShow)
        {
            ShowSystemMessage(sReport.Get());
        }
    }
    catch (...)
    {
        // Most likely there is no memory left. The caller still returns its failure value.
        return;
    }
}
