#pragma once

#include <string>

// While the object lives, the process uses a locale that writes numbers with a comma, if the system has one.
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
