#pragma once

#include "classes/core/CLibrarySettings.h"

// The facts about this program that the class library needs. Hand them over before CKinetarium is constructed.
CLibrarySettings GetLibrarySettings_Kinetarium() noexcept;
