#pragma once

#include <optional>
#include <string>

// Sets an environment variable of this process for as long as the object lives; null removes it.
class CEnvironmentChange
{
public:
    CEnvironmentChange(const char* sName, const char* sValue);
    ~CEnvironmentChange();
    CEnvironmentChange(const CEnvironmentChange&) = delete;
    CEnvironmentChange& operator=(const CEnvironmentChange&) = delete;

private:
    std::string m_sName;
    std::optional<std::wstring> m_Previous;
};
