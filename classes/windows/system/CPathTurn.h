#pragma once

#include "classes/core/CKernelHandle.h"
#include "classes/core/CWString.h"

// A turn at the file of a path: of all programs that ask for one in this way, one has it at a time. The constructor
// waits for it; the destructor, on the same thread, hands it on. A thread that has the turn gets it again at once.
class CPathTurn
{
public:
    // uPatience: the longest wait, in milliseconds. Paths that differ in case only are the same.
    CPathTurn(const CWString& sPath, unsigned uPatience);
    ~CPathTurn();
    CPathTurn(const CPathTurn&) = delete;
    CPathTurn& operator=(const CPathTurn&) = delete;

    // False after a wait in vain. True as well if the system gives no turns at all: nobody can be waited for then.
    bool MayWrite() const { return m_bMayWrite; }

private:
    CKernelHandle m_hMutex;
    bool m_bOwned = false;
    bool m_bMayWrite = false;
};
