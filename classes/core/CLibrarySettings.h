#pragma once

#include "classes/core/CColour.h"

#include <span>

// Everything that the library must know of the program that uses it. It keeps the pointers, not copies: texts and keys
// must live as long as the process.
struct CLibrarySettings
{
    // Title of the system's message boxes, name of the program in a crash report and start of that report's file names.
    // UTF-8.
    const char* sProgramName = "Program";

    // Names of environment variables; null: none is read.
    const char* sLanguageVariable = nullptr; // holds the index of the language, in place of what the program asks for
    const char* sDebugOutputVariable = nullptr; // when set, the debug output also goes to the standard error stream

    // True for the index of a language that is written from right to left. Null: there is none.
    bool (*pIsRightToLeft)(unsigned char byLanguage) = nullptr;

    // The virtual-key codes that the main window handles wherever the focus is: a control that has the focus sends it
    // their WM_KEYUP.
    std::span<const unsigned> mainWindowKeys;

    // A button's face before it is given one.
    ColourRef crButtonFace = MakeColour(0xE1, 0xE1, 0xE1);
};

// Hands the settings to the library and returns those that were in force. Call it before the first window, and while
// no other thread uses the library.
CLibrarySettings SetLibrarySettings(const CLibrarySettings& settings) noexcept;

// The settings in force: the defaults above until others are handed over.
const CLibrarySettings& GetLibrarySettings() noexcept;
