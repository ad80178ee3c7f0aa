#include "tests/endtoend/CEndToEndTest.h"

#include <windows.h>

#include <array>

std::filesystem::path BuiltProgram()
{
    std::array<wchar_t, MAX_PATH> path{};
    GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
    const std::filesystem::path tree = std::filesystem::path(path.data()).parent_path().parent_path();
    return tree / "bin" / "Kinetarium.exe";
}
