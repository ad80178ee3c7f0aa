#include "diagnostics/PruneDebugLog.h"

#include "classes/core/OutputDebugMessage.h"

void PruneDebugLog(std::wstring& sLog, std::size_t uKeep)
{
    const std::lock_guard lock(DebugLog_GetMutex());
    if (sLog.size() > uKeep)
    {
        sLog.erase(0, sLog.size() - uKeep);
    }
}
