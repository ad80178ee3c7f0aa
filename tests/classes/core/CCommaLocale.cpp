#include "tests/classes/core/CCommaLocale.h"

#include <clocale>

// The tests that change the locale have no other thread running.
// NOLINTBEGIN(concurrency-mt-unsafe)

CCommaLocale::CCommaLocale() : m_sBefore(std::setlocale(LC_ALL, nullptr))
{
    // Tries the names of both systems; an unknown name changes nothing.
    for (const char* sName : {"de_DE.UTF-8", "German_Germany.1252", "fr_FR.UTF-8"})
    {
        static_cast<void>(std::setlocale(LC_ALL, sName));
    }
}

CCommaLocale::~CCommaLocale()
{
    static_cast<void>(std::setlocale(LC_ALL, m_sBefore.c_str()));
}

// NOLINTEND(concurrency-mt-unsafe)
