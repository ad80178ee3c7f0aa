#include "headless/options/StartText.h"

#include "headless/options/COptions.h"
#include "headless/options/OptionValues.h"

std::string DescribeStart(const COptions& options)
{
    if (options.loadState)
    {
        return *options.loadState == c_sStandardInput ? c_sStandardInputName : *options.loadState;
    }
    return options.startAt ? TextOfPoint(*options.startAt) : c_sRandomStart;
}

std::optional<std::string> GetStartFile(const std::string& sStart)
{
    // A point has digits and one comma only.
    const std::size_t uComma = sStart.find(',');
    const bool bPoint = uComma != std::string::npos && sStart.find_first_not_of("0123456789,") == std::string::npos &&
                        sStart.find(',', uComma + 1) == std::string::npos;
    if (sStart == c_sRandomStart || bPoint)
    {
        return std::nullopt;
    }
    return sStart == c_sStandardInputName ? c_sStandardInput : sStart;
}
