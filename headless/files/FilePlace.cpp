#include "headless/files/FilePlace.h"

#include "classes/core/CWString.h"
#include "headless/files/SystemFile.h"

#include <system_error>

namespace fs = std::filesystem;

namespace
{

constexpr int c_iMostLinks = 40; // as many as Linux follows

#ifdef _WIN32

// Windows drops dots and blanks at the end of a name.
std::wstring DropEnd(std::wstring sName)
{
    sName.erase(sName.find_last_not_of(L". ") + 1);
    return sName;
}

#endif

} // namespace

fs::path FollowLinks(const fs::path& path)
{
    fs::path target = path;
    std::error_code error;
    for (int links = 0; links < c_iMostLinks && fs::is_symlink(target, error); ++links)
    {
        const fs::path next = fs::read_symlink(target, error);
        if (error)
        {
            return path;
        }
        // An absolute path replaces the folder.
        target = GetFolder(target) / next;
    }
    return fs::is_symlink(target, error) ? path : target;
}

fs::path GetFolder(const fs::path& path)
{
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

bool AreSameNames(const fs::path& first, const fs::path& second)
{
#ifdef _WIN32
    return CWString(DropEnd(first.native())).CompareNoCase(DropEnd(second.native())) == 0;
#else
    return first == second;
#endif
}

bool AreSameFile(const std::string& sFirst, const std::string& sSecond)
{
    const fs::path first = FollowLinks(PathFromUtf8(sFirst));
    const fs::path second = FollowLinks(PathFromUtf8(sSecond));
    std::error_code error;
    if (fs::exists(first, error) && fs::exists(second, error))
    {
        return fs::equivalent(first, second, error);
    }
    return AreSameNames(first.filename(), second.filename()) &&
           fs::equivalent(GetFolder(first), GetFolder(second), error);
}
