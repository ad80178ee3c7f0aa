#include "headless/files/TemporaryFiles.h"

#include "headless/files/CHeldSignals.h"
#include "headless/files/SystemFile.h"

#include <algorithm>
#include <vector>

namespace
{

// Changed only while the signals are held. Never destroyed: a signal may come during the last moments of the program.
std::vector<std::filesystem::path>& g_Files = *new std::vector<std::filesystem::path>;

} // namespace

int CreateTemporaryFile(const std::filesystem::path& path, bool bPrivate, int& error)
{
    const CHeldSignals held;
    g_Files.push_back(path);
    const int file = SystemFile_Create(path, bPrivate, error);
    if (file == c_iNoFile)
    {
        g_Files.pop_back();
    }
    return file;
}

void ForgetTemporaryFile(const std::filesystem::path& path) noexcept
{
    const CHeldSignals held;
    g_Files.erase(std::remove(g_Files.begin(), g_Files.end(), path), g_Files.end());
}

void RemoveTemporaryFiles() noexcept
{
    const CHeldSignals held;
    for (const std::filesystem::path& path : g_Files)
    {
        SystemFile_Remove(path);
    }
}
