#pragma once

#include <string>

// An error that ends the process: one of the two members is set.
struct CUnhandledError
{
    const char* exception = nullptr; // an exception's type and text in UTF-8
    void* fault = nullptr;           // a fault, as the system describes it (on Windows an EXCEPTION_POINTERS)
};

using UnhandledErrorFunction = void (*)(const CUnhandledError& error);

// The process's last resort, one object for the life of the program. It names an uncaught C++ exception, on Windows
// also a fault such as an access violation, in the debug output and the log before the process ends. The destructor
// restores the previous handlers.
class CExceptionHandler
{
public:
    // Can hold a handler of any type.
    using FunctionPointer = void (*)();

    // pDebugLog may be null and must outlive this object. bShow: the user sees the report too.
    CExceptionHandler(std::wstring* pDebugLog, bool bShow);
    ~CExceptionHandler();
    CExceptionHandler(const CExceptionHandler&) = delete;
    CExceptionHandler& operator=(const CExceptionHandler&) = delete;

    // From now on the handler first calls this function with each such error, on the thread where the error happened.
    // The function may end the process itself. Null: nothing is called.
    static void SetReporter(UnhandledErrorFunction pReporter) noexcept;

private:
    std::wstring* m_pPreviousLog;
    bool m_bPreviousShow;
    FunctionPointer m_pPreviousTerminate;
    FunctionPointer m_pPreviousFaultFilter;
};
