#include "tests/rooms/SourceTree.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace
{

bool IsSource(const fs::path& path)
{
    return path.extension() == ".h" || path.extension() == ".cpp";
}

bool IsSkipped(const fs::path& folder, bool bTopLevel)
{
    const std::string sName = folder.filename().string();
    return sName.starts_with('.') || (bTopLevel && (sName == "build" || sName == "out"));
}

} // namespace

CSourceTree ReadSourceTree(const fs::path& root)
{
    CSourceTree tree;
    for (fs::recursive_directory_iterator entry(root); entry != fs::recursive_directory_iterator(); ++entry)
    {
        if (entry->is_directory() && IsSkipped(entry->path(), entry.depth() == 0))
        {
            entry.disable_recursion_pending();
        }
        else if (entry->is_regular_file() && IsSource(entry->path()))
        {
            tree.emplace(entry->path().lexically_relative(root).generic_string(), ReadWholeFile(entry->path()));
        }
    }
    return tree;
}

std::string ReadWholeFile(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string sBytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file)
    {
        throw std::runtime_error(path.generic_string() + ": cannot be read");
    }
    return sBytes;
}

std::string GetFolder(std::string_view sPath)
{
    const std::size_t uSlash = sPath.rfind('/');
    return std::string(sPath.substr(0, uSlash == std::string_view::npos ? 0 : uSlash));
}
