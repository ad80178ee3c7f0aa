#pragma once

#include <windows.h>

// As long as one exists, this program's calls of a system function reach another function instead: the way in which a
// test makes the system refuse something. All threads are concerned; a replacement that is meant for one of them has to
// look at the thread or the arguments.
class CReplacedImport
{
public:
    // Throws std::runtime_error when the program does not import a function of that name.
    template<class F>
    CReplacedImport(const char* sFunction, F* pReplacement)
        : CReplacedImport(sFunction, reinterpret_cast<ULONG_PTR>(pReplacement))
    {
    }
    ~CReplacedImport();
    CReplacedImport(const CReplacedImport&) = delete;
    CReplacedImport& operator=(const CReplacedImport&) = delete;

    // The system's own function, for replacements that hand on.
    template<class F>
    F* GetOriginal() const
    {
        return reinterpret_cast<F*>(m_uOriginal);
    }

private:
    CReplacedImport(const char* sFunction, ULONG_PTR uReplacement);

    ULONG_PTR* m_pEntry;
    ULONG_PTR m_uOriginal;
};
