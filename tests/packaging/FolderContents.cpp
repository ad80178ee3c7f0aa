#include "tests/packaging/FolderContents.h"

#include "tests/endtoend/WaitUntil.h"
#include "tests/packaging/HandedOut.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(20000);

// Nothing if the folder changes meanwhile.
std::optional<CFileNames> TryFilesIn(const std::filesystem::path& folder)
{
    CFileNames names;
    std::error_code error;
    for (std::filesystem::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
    {
        if (!entry->is_directory(error) && !error)
        {
            names.insert(entry->path().lexically_relative(folder).generic_string());
        }
    }
    return error ? std::nullopt : std::optional(names);
}
} // namespace

CFileNames FilesIn(const std::filesystem::path& folder)
{
    std::optional<CFileNames> names;
    WaitUntil("the folder to be at rest", c_patience, [&] {
        names = std::filesystem::exists(folder) ? TryFilesIn(folder) : CFileNames{};
        return names.has_value();
    });
    return *names;
}

CFileNames InstalledFiles()
{
    CFileNames names = FilesIn(HandedOutFolder());
    names.insert("Uninstall.exe");
    names.insert("installed-files.ini");
    return names;
}

std::ptrdiff_t CountEntries(const std::filesystem::path& folder)
{
    std::error_code error;
    std::ptrdiff_t iCount = 0;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    {
        ++iCount;
    }
    return error ? -1 : iCount;
}

std::string ReadFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void WriteFile(const std::filesystem::path& file, const std::string& sText)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << sText;
}
