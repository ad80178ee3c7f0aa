#include "headless/pictures/CNumberedPictures.h"

#include "headless/console/NumberText.h"
#include "headless/files/FilePlace.h"
#include "headless/files/SystemFile.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

namespace fs = std::filesystem;

namespace
{

// The index of the extension with its dot; the end if there is none.
std::size_t FindExtension(const std::string& sPath)
{
    const std::size_t uName = sPath.find_last_of("/\\") + 1; // 0 without a folder
    const std::size_t uDot = sPath.rfind('.');
    return uDot == std::string::npos || uDot <= uName ? sPath.size() : uDot;
}

} // namespace

std::string GetNumberedName(const std::string& sPath, std::uint64_t uIteration, std::uint64_t uIterations)
{
    const std::string sLast = std::to_string(uIterations);
    std::string sNumber = std::to_string(uIteration);
    sNumber.insert(0, sLast.size() > sNumber.size() ? sLast.size() - sNumber.size() : 0, '0');
    const std::size_t uInsert = FindExtension(sPath);
    return sPath.substr(0, uInsert) + '-' + sNumber + sPath.substr(uInsert);
}

CNumberedPictures::CNumberedPictures(std::string sPath, std::uint64_t uEvery, std::uint64_t uIterations)
    : m_sPath(std::move(sPath)), m_uEvery(uEvery), m_uIterations(uIterations)
{
}

bool CNumberedPictures::Contain(const std::string& sPath) const
{
    const fs::path path = FollowLinks(PathFromUtf8(sPath));
    std::error_code error;
    return HasName(Utf8FromPath(path.filename())) &&
           fs::equivalent(GetFolder(path), GetFolder(PathFromUtf8(m_sPath)), error);
}

std::vector<std::string> CNumberedPictures::FindLinks() const
{
    std::vector<std::string> links;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(GetFolder(PathFromUtf8(m_sPath)), error))
    {
        const bool bLink = entry.is_symlink(error) || entry.hard_link_count(error) > 1;
        if (bLink && HasName(Utf8FromPath(entry.path().filename())))
        {
            links.push_back(Utf8FromPath(entry.path()));
        }
    }
    return links;
}

// The number stands where the length of the extension says, with as many digits as the last iteration has.
bool CNumberedPictures::HasName(const std::string& sName) const
{
    const std::size_t uDigits = std::to_string(m_uIterations).size();
    const std::size_t uExtension = m_sPath.size() - FindExtension(m_sPath);
    if (sName.size() < uDigits + uExtension)
    {
        return false;
    }
    const std::optional<std::uint64_t> uNumber =
        ParseWholeNumber(std::string_view(sName).substr(sName.size() - uDigits - uExtension, uDigits));
    if (!uNumber || *uNumber == 0 || *uNumber > m_uIterations || *uNumber % m_uEvery != 0)
    {
        return false;
    }
    const fs::path expected = PathFromUtf8(GetNumberedName(m_sPath, *uNumber, m_uIterations)).filename();
    return AreSameNames(expected, PathFromUtf8(sName));
}
