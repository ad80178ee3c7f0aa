#pragma once

#include <windows.h>

// While an object of this class exists, this program's calls of a system function reach a replacement. Tests use it to
// make the system refuse something. It affects all threads; a replacement for one thread only must check the thread or
// the arguments.
class CReplacedImport
{
public:
    // Throws std::runtime_error if the program does not import a function of that name.
    template<class F>
    CReplacedImport(const char* sFunction, F* pReplacement)
        : CReplacedImport(sFunction, reinterpret_cast<ULONG_PTR>(pReplacement))
    {
    }
    ~CReplacedImport();
    CReplacedImport(const CReplacedImport&) = delete;
    CReplacedImport& operator=(const CReplacedImport&) = delete;

    // The system's own function, for replacements that call it.
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
