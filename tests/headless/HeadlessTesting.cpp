#include "tests/headless/HeadlessTesting.h"

#include "headless/files/SystemFile.h"
#include "headless/HeadlessMain.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <system_error>

namespace fs = std::filesystem;

namespace
{
std::string MakeFolderName()
{
    std::random_device random;
    return "kinetarium-headless-" + std::to_string(random()) + std::to_string(random());
}
} // namespace

CTemporaryFolder::CTemporaryFolder() : m_Path(fs::temp_directory_path() / MakeFolderName())
{
    fs::create_directories(m_Path);
}

CTemporaryFolder::~CTemporaryFolder()
{
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_Path, ignored))
    {
        fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    fs::remove_all(m_Path, ignored);
}

std::string CTemporaryFolder::GetPath(const std::string& sName) const
{
    const std::u8string sPath = (m_Path / PathFromUtf8(sName)).u8string();
    return {sPath.begin(), sPath.end()};
}

std::string CTemporaryFolder::WriteFile(const std::string& sName, std::string_view sBytes) const
{
    std::string sPath = GetPath(sName);
    std::ofstream stream(PathFromUtf8(sPath), std::ios::binary);
    stream.write(sBytes.data(), static_cast<std::streamsize>(sBytes.size()));
    return sPath;
}

std::vector<std::string> CTemporaryFolder::GetNames() const
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_Path))
    {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string ReadFile(const std::string& sPath)
{
    std::ifstream stream(PathFromUtf8(sPath), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

CProgramResult RunProgram(const std::vector<std::string>& arguments, bool bErrIsTerminal,
                          const std::atomic<int>* pInterrupted)
{
    std::ostringstream out;
    std::ostringstream err;
    const int exitCode = HeadlessMain(arguments, CConsole{out, err, bErrIsTerminal, pInterrupted});
    return {exitCode, out.str(), err.str()};
}

std::string GetSummaryValue(const std::string& sSummary, const std::string& sName)
{
    std::istringstream lines(sSummary);
    std::string sLine;
    while (std::getline(lines, sLine))
    {
        if (sLine.starts_with(sName + ": "))
        {
            return sLine.substr(sName.size() + 2);
        }
    }
    return {};
}

CAtoms MakeAtoms(std::initializer_list<CAtom> atoms)
{
    CAtoms made;
    made.Allocate(static_cast<std::int32_t>(atoms.size()));
    std::copy(atoms.begin(), atoms.end(), made.GetAtoms());
    return made;
}

CAtom MakeAtom(float x, float y, std::uint8_t uRadius)
{
    CAtom atom;
    atom.x = x;
    atom.y = y;
    atom.radius = uRadius;
    return atom;
}
