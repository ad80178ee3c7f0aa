#include "classes/core/CLibrarySettings.h"

#include <utility>

namespace
{

// Without constructor and destructor: valid from the first static object to the last.
constinit CLibrarySettings g_settings;

} // namespace

CLibrarySettings SetLibrarySettings(const CLibrarySettings& settings) noexcept
{
    return std::exchange(g_settings, settings);
}

const CLibrarySettings& GetLibrarySettings() noexcept
{
    return g_settings;
}
