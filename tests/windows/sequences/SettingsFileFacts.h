#pragma once

#include "tests/sequences/CWindowFacts.h"

// Writes a settings file for the beginning of a sequence, in the place of the present one.
void WriteFirstSettings();

// Reads the bytes of the settings file, without the functions of the system by which the program reads it.
CFileFacts ReadSettingsFile();
