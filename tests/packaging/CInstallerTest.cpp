#include "tests/packaging/CInstallerTest.h"

#include "tests/packaging/CInstallation.h"

#include <system_error>

CInstallerTest::CInstallerTest()
{
    const std::string sName = "kinetarium installed " + std::to_string(GetCurrentProcessId());
    m_place = std::filesystem::temp_directory_path() / sName;
    Clear();
}

CInstallerTest::~CInstallerTest()
{
    Clear();
}

void CInstallerTest::Clear() const
{
    std::error_code ignored;
    std::filesystem::remove_all(m_place, ignored);
    std::filesystem::remove_all(DefaultPlace(), ignored);
    std::filesystem::remove(StartMenuEntry(), ignored);
    std::filesystem::remove(DesktopEntry(), ignored);
    RemoveFromList();
}

DWORD CInstallerTest::Install(const std::filesystem::path& installer) const
{
    return RunToEnd(installer, L"/S /D=" + m_place.wstring());
}

DWORD CInstallerTest::Uninstall() const
{
    return RunToEnd(m_place / "Uninstall.exe", L"/S _?=" + m_place.wstring());
}
