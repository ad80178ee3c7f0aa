#include "classes/windows/system/WndProcForward.h"

#include "classes/core/OnException.h"

void ReportWindowException(std::wstring* pDebugLog, const char* sFile, unsigned uLine, const char* sFunction) noexcept
{
    OnException(pDebugLog, sFile, uLine, sFunction, __TIMESTAMP__, nullptr, false);
}
