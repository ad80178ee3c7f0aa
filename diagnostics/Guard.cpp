#include "diagnostics/Guard.h"

#include "classes/core/OnException.h"

#include <fmt/format.h>

std::string FormatScopeText(const CTraceSite& site)
{
    return fmt::format("{} - Line {} - File {}", site.where.function_name(), site.where.line(), site.where.file_name());
}

void ReportException(const CTraceSite& site) noexcept
{
    OnException(site.pDebugLog, site.where.file_name(), site.where.line(), site.where.function_name(),
                site.sBuildTimeStamp, nullptr, false);
}
