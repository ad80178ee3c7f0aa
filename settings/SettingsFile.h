#pragma once

#include <array>
#include <cstddef>

// The names of the settings file that belong to no single setting. They never change: users and their scripts know
// them.
namespace SettingsFile
{
constexpr const wchar_t* c_sFileName = L"Kinetarium.ini";
constexpr const wchar_t* c_sSection = L"Settings";

constexpr std::array<const wchar_t*, 4> c_sWindowKeys{L"WndLeft", L"WndTop", L"WndRight", L"WndBottom"};

// The longest wait for another program that uses the file, in milliseconds. After that nothing is written.
constexpr unsigned c_uPatience = 1000;

// A longer text is truncated when it is read.
constexpr std::size_t c_uMostTextCharacters = 15;
} // namespace SettingsFile
