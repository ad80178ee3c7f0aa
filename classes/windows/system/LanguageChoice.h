#pragma once

#include <windows.h>

// The index of the user-interface language: the environment variable CLibrarySettings::sLanguageVariable if it holds a
// whole number from 0 to 255; otherwise the number "Language" under hRoot\Software\sName if a name is given; otherwise
// byDefault.
unsigned char ChooseLanguage(HKEY hRoot, const wchar_t* sName, unsigned char byDefault);
