#include "classes/core/CExceptionHandler.h"

#include "classes/core/CFixedText.h"
#include "classes/core/CWString.h"
#include "classes/core/ExceptionText.h"
#include "classes/core/OutputDebugMessage.h"
#include "classes/core/SystemMessage.h"
#include "classes/core/Utf8.h"

#include <atomic>
#include <cstdlib>
#include <exception>

#ifdef _WIN32
#include <windows.h>
#endif

namespace
{

std::atomic<std::wstring*> g_pDebugLog{};
std::atomic<bool> g_bShow{};
std::atomic<std::terminate_handler> g_pPreviousTerminate{};
std::atomic<UnhandledErrorFunction> g_pReporter{};

constexpr std::size_t c_uDescriptionSize = 1024; // bytes, enough for any text worth reading

void Report(const std::wstring& sWhat)
{
    const std::wstring sReport = L"Unhandled exception: " + sWhat;
    WriteDebugText(g_pDebugLog.load(), sReport + L"\n");
    if (g_bShow.load())
    {
        ShowSystemMessage(sReport);
    }
}

// Writes the report and swallows any exception in it.
template<class F>
void ReportSafely(F&& describe) noexcept
{
    try
    {
        Report(describe());
    }
    catch (...)
    {
        // The process ends anyway; the previous handler has the last word.
        return;
    }
}

void CallReporter(const CUnhandledError& error)
{
    if (const UnhandledErrorFunction pReporter = g_pReporter.load())
    {
        pReporter(error);
    }
}

// Writes into storage on the stack, so that an out-of-memory exception is reported too.
void DescribeException(CFixedText& text) noexcept
{
    try
    {
        text.Add(Utf8FromWide(DescribeCurrentException()).c_str());
    }
    catch (...)
    {
        text.Clear();
        text.Add("an exception that there is no memory to describe");
    }
}

void OnTerminate()
{
    char description[c_uDescriptionSize];
    CFixedText text(description, sizeof description);
    DescribeException(text);
    CallReporter({text.Get(), nullptr});
    ReportSafely([] { return DescribeCurrentException(); });
    const std::terminate_handler pPrevious = g_pPreviousTerminate.load();
    if (pPrevious != nullptr)
    {
        pPrevious();
    }
    std::abort();
}

} // namespace

#ifdef _WIN32

namespace
{

// The code of C++ exceptions in flight: the runtime's own filter turns these faults into std::terminate.
constexpr DWORD c_dwGccExceptionCode = 0x20474343;
constexpr DWORD c_dwGccExceptionMask = 0x20FFFFFF;

std::atomic<LPTOP_LEVEL_EXCEPTION_FILTER> g_pPreviousFilter{};

LONG WINAPI OnFault(EXCEPTION_POINTERS* pPointers)
{
    const EXCEPTION_RECORD& record = *pPointers->ExceptionRecord;
    if ((record.ExceptionCode & c_dwGccExceptionMask) != c_dwGccExceptionCode)
    {
        CallReporter({nullptr, pPointers});
        ReportSafely([&record] {
            CWString sText;
            sText.Format(L"fault 0x%08x at address %p", static_cast<std::uint32_t>(record.ExceptionCode),
                         static_cast<const void*>(record.ExceptionAddress));
            return sText.Get();
        });
    }
    const LPTOP_LEVEL_EXCEPTION_FILTER pPrevious = g_pPreviousFilter.load();
    return pPrevious != nullptr ? pPrevious(pPointers) : EXCEPTION_CONTINUE_SEARCH;
}

// Returns the previous filter.
CExceptionHandler::FunctionPointer InstallFaultFilter()
{
    const LPTOP_LEVEL_EXCEPTION_FILTER pPrevious = SetUnhandledExceptionFilter(&OnFault);
    if (pPrevious != &OnFault)
    {
        g_pPreviousFilter.store(pPrevious);
    }
    return reinterpret_cast<CExceptionHandler::FunctionPointer>(pPrevious);
}

void RestoreFaultFilter(CExceptionHandler::FunctionPointer pPrevious)
{
    SetUnhandledExceptionFilter(reinterpret_cast<LPTOP_LEVEL_EXCEPTION_FILTER>(pPrevious));
}

} // namespace

#else

namespace
{

// Faults are signals here, and the shell that started the program reports them well enough.
CExceptionHandler::FunctionPointer InstallFaultFilter()
{
    return nullptr;
}

void RestoreFaultFilter(CExceptionHandler::FunctionPointer) {}

} // namespace

#endif

CExceptionHandler::CExceptionHandler(std::wstring* pDebugLog, bool bShow)
    : m_pPreviousLog(g_pDebugLog.exchange(pDebugLog)),
      m_bPreviousShow(g_bShow.exchange(bShow)),
      m_pPreviousTerminate(std::set_terminate(&OnTerminate)),
      m_pPreviousFaultFilter(InstallFaultFilter())
{
    // With two of these objects the inner one must not call itself.
    if (m_pPreviousTerminate != &OnTerminate)
    {
        g_pPreviousTerminate.store(m_pPreviousTerminate);
    }
}

void CExceptionHandler::SetReporter(UnhandledErrorFunction pReporter) noexcept
{
    g_pReporter.store(pReporter);
}

CExceptionHandler::~CExceptionHandler()
{
    RestoreFaultFilter(m_pPreviousFaultFilter);
    std::set_terminate(m_pPreviousTerminate);
    g_bShow.store(m_bPreviousShow);
    g_pDebugLog.store(m_pPreviousLog);
}
