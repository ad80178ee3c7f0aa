#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

// Preloaded into the program under test, this library stands between it and the C library: it makes a chosen call to
// the file system fail, or stops or ends the process right before that call. KINETARIUM_FAULTS holds the rules, with
// semicolons between them:
//
//   FUNCTION:PATH:NUMBER:ACTION=VALUE
//
// The rule matches the calls of FUNCTION (any: of all) whose path contains PATH, counts them, and acts on the one with
// this NUMBER, from 1. The actions:
//
//   error=N    the call fails with this error number
//   signal=N   the process gets this signal before the call: 19 stops it, 9 ends it
//   later=N    the process gets this signal after another 20 ms of processor time
namespace
{

constexpr std::size_t c_uMaxRules = 8;
constexpr std::size_t c_uMaxText = 64;
constexpr long c_iLaterNanoSeconds = 20'000'000;

struct CRule
{
    std::array<char, c_uMaxText> function;
    std::array<char, c_uMaxText> path;
    std::array<char, c_uMaxText> action;
    int number;
    int value;
    int seen;
};

struct CRules
{
    std::array<CRule, c_uMaxRules> rules{};
    std::size_t uCount = 0;

    CRules()
    {
        const char* pText = std::getenv("KINETARIUM_FAULTS");
        while (pText != nullptr && uCount < c_uMaxRules)
        {
            CRule& rule = rules[uCount];
            const int fields = std::sscanf(pText, "%63[^:]:%63[^:]:%d:%63[^=]=%d", rule.function.data(),
                                           rule.path.data(), &rule.number, rule.action.data(), &rule.value);
            if (fields != 5)
            {
                std::abort();
            }
            ++uCount;
            pText = std::strchr(pText, ';');
            pText = pText == nullptr ? nullptr : pText + 1;
        }
    }
};

CRules& GetRules()
{
    static CRules rules;
    return rules;
}

void SignalLater(int signal)
{
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = signal;
    timer_t timer{};
    itimerspec time{};
    time.it_value.tv_nsec = c_iLaterNanoSeconds;
    if (timer_create(CLOCK_PROCESS_CPUTIME_ID, &event, &timer) != 0 || timer_settime(timer, 0, &time, nullptr) != 0)
    {
        std::abort();
    }
}

// True if the call must fail; errno then says why.
bool MeetFault(std::string_view sFunction, std::string_view sPath)
{
    for (CRule& rule : GetRules().rules)
    {
        const std::string_view sRule = rule.function.data();
        const bool bMatches = (sRule == "any" || sRule == sFunction) &&
                              sPath.find(rule.path.data()) != std::string_view::npos && ++rule.seen == rule.number;
        const std::string_view sAction = rule.action.data();
        if (bMatches && sAction == "signal")
        {
            static_cast<void>(raise(rule.value));
        }
        else if (bMatches && sAction == "later")
        {
            SignalLater(rule.value);
        }
        else if (bMatches)
        {
            errno = rule.value;
            return true;
        }
    }
    return false;
}

bool MeetFault(std::string_view sFunction, int file)
{
    const int error = errno;
    std::array<char, 64> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
    std::array<char, 4096> path{};
    const ssize_t length = readlink(link.data(), path.data(), path.size());
    errno = error;
    return length > 0 && MeetFault(sFunction, {path.data(), static_cast<std::size_t>(length)});
}

// The C library's function of that name.
template<class F>
F* GetNext(F*, const char* sName)
{
    return reinterpret_cast<F*>(dlsym(RTLD_NEXT, sName));
}

} // namespace

extern "C"
{

    int open(const char* sPath, int flags, ...)
    {
        va_list arguments;
        va_start(arguments, flags);
        const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
        va_end(arguments);
        return MeetFault("open", sPath) ? -1 : GetNext(&open, "open")(sPath, flags, mode);
    }

    ssize_t read(int file, void* pBytes, size_t uCount)
    {
        return MeetFault("read", file) ? -1 : GetNext(&read, "read")(file, pBytes, uCount);
    }

    ssize_t write(int file, const void* pBytes, size_t uCount)
    {
        return MeetFault("write", file) ? -1 : GetNext(&write, "write")(file, pBytes, uCount);
    }

    ssize_t writev(int file, const iovec* pPieces, int count)
    {
        return MeetFault("write", file) ? -1 : GetNext(&writev, "writev")(file, pPieces, count);
    }

    int fsync(int file)
    {
        return MeetFault("fsync", file) ? -1 : GetNext(&fsync, "fsync")(file);
    }

    // A failing close has closed the file all the same.
    int close(int file)
    {
        const bool bFails = MeetFault("close", file);
        const int error = errno;
        const int result = GetNext(&close, "close")(file);
        errno = bFails ? error : errno;
        return bFails ? -1 : result;
    }

    int rename(const char* sFrom, const char* sTo) noexcept
    {
        return MeetFault("rename", sTo) ? -1 : GetNext(&rename, "rename")(sFrom, sTo);
    }

    int fchmodat(int folder, const char* sPath, mode_t mode, int flags) noexcept
    {
        return MeetFault("chmod", sPath) ? -1 : GetNext(&fchmodat, "fchmodat")(folder, sPath, mode, flags);
    }

} // extern "C"
