#include "headless/options/Outputs.h"

#include "headless/options/COptions.h"

#include <optional>

std::vector<COutput> GetOutputs(const COptions& options)
{
    std::vector<COutput> outputs;
    const auto add = [&outputs](const char* sOption, const std::optional<std::string>& path, bool bGrows) {
        if (path)
        {
            outputs.push_back({sOption, *path, bGrows});
        }
    };
    add("--save-state", options.saveState, false);
    add("--stats", options.stats, true);
    add("--histogram", options.histogram, true);
    add("--trajectory", options.trajectory, true);
    add("--video", options.video, true);
    add("--picture", options.picture, false);
    add("--report", options.report, false);
    add("--checkpoint", options.checkpoint, false);
    return outputs;
}
