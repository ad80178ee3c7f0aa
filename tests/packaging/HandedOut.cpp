#include "tests/packaging/HandedOut.h"

#include <windows.h>

#include <array>

std::filesystem::path BuildTree()
{
    std::array<wchar_t, MAX_PATH> path{};
    GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
    return std::filesystem::path(path.data()).parent_path().parent_path();
}

std::filesystem::path BuiltPrograms()
{
    return BuildTree() / "bin";
}

std::filesystem::path HandedOutFolder()
{
    return BuildTree() / "package" / "Kinetarium";
}

std::filesystem::path BuiltInstaller()
{
    return BuildTree() / "package" / "Kinetarium-" KINETARIUM_VERSION "-setup.exe";
}

std::filesystem::path BuiltEarlierInstaller()
{
    return BuildTree() / "package" / "Kinetarium-1.9.0-setup.exe";
}
