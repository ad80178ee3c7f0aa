#pragma once

#include "classes/core/CLibrarySettings.h"

// What the class library is told of this program. To be handed over before CKinetarium is constructed.
CLibrarySettings GetLibrarySettings_Kinetarium() noexcept;
