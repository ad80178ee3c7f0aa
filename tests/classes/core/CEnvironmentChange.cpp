#include "tests/classes/core/CEnvironmentChange.h"

#include "classes/core/EnvironmentText.h"
#include "classes/core/Utf8.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <cstdlib>
#endif

namespace
{

void Change(const std::string& sName, const std::wstring* pValue)
{
#ifdef _WIN32
    SetEnvironmentVariableW(WideFromUtf8(sName).c_str(), pValue != nullptr ? pValue->c_str() : nullptr);
#else
    // The tests that change the environment have no other thread running.
    // NOLINTBEGIN(concurrency-mt-unsafe)
    if (pValue != nullptr)
    {
        setenv(sName.c_str(), Utf8FromWide(*pValue).c_str(), 1);
    }
    else
    {
        unsetenv(sName.c_str());
    }
    // NOLINTEND(concurrency-mt-unsafe)
#endif
}

} // namespace

CEnvironmentChange::CEnvironmentChange(const char* sName, const char* sValue)
    : m_sName(sName), m_Previous(GetEnvironmentText(sName))
{
    const std::wstring sWide = sValue != nullptr ? WideFromUtf8(sValue) : std::wstring();
    Change(m_sName, sValue != nullptr ? &sWide : nullptr);
}

CEnvironmentChange::~CEnvironmentChange()
{
    Change(m_sName, m_Previous ? &*m_Previous : nullptr);
}
