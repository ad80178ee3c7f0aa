#include "headless/states/StateRescue.h"

#include "headless/console/HeadlessError.h"
#include "headless/files/COutputFile.h"
#include "headless/files/SystemFile.h"
#include "headless/states/StateFile.h"

#include <filesystem>
#include <random>
#include <system_error>

namespace fs = std::filesystem;

std::string SaveStateElsewhere(const CAtoms& atoms)
{
    std::random_device random;
    std::error_code error;
    for (const fs::path& folder : {fs::temp_directory_path(error), fs::current_path(error)})
    {
        const fs::path path = folder / ("kinetarium-state-" + std::to_string(random()) + ".csv");
        const std::string sPath = Utf8FromPath(path);
        try
        {
            COutputFile file(sPath);
            SaveState(atoms, file);
            file.Commit();
            return sPath;
        }
        catch (const CWriteError&)
        {
            // The next folder may take it.
        }
    }
    return {};
}
