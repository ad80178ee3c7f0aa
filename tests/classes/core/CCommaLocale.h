#pragma once

#include <string>

// As long as the object lives, the process is in a locale that writes numbers with a comma, if the system has one.
class CCommaLocale
{
public:
    CCommaLocale();
    ~CCommaLocale();
    CCommaLocale(const CCommaLocale&) = delete;
    CCommaLocale& operator=(const CCommaLocale&) = delete;

private:
    std::string m_sBefore;
};
