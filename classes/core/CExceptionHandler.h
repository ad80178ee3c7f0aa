#pragma once

#include <string>

// The process's last resort, one object for the life of the program: what nothing else caught (a C++ exception, on
// Windows also a fault such as an access violation) is named in the debug output and the log before the process ends.
// The destructor gives the process back the handlers that it had before.
class CExceptionHandler
{
public:
    // Holds a handler of whatever type.
    using FunctionPointer = void (*)();

    // pDebugLog may be null and must outlive this object. bShow: the user sees the report too.
    CExceptionHandler(std::wstring* pDebugLog, bool bShow);
    ~CExceptionHandler();
    CExceptionHandler(const CExceptionHandler&) = delete;
    CExceptionHandler& operator=(const CExceptionHandler&) = delete;

private:
    std::wstring* m_pPreviousLog;
    bool m_bPreviousShow;
    FunctionPointer m_pPreviousTerminate;
    FunctionPointer m_pPreviousFaultFilter;
};
