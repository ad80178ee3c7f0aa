#include "tests/headless/CHeadlessProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace
{

constexpr int c_iStartFailed = 99;
constexpr uid_t c_Nobody = 65534;

int Require(int result, const char* sWhat)
{
    if (result < 0)
    {
        throw std::system_error(errno, std::generic_category(), sWhat);
    }
    return result;
}

std::string ReadAll(int file)
{
    Require(static_cast<int>(lseek(file, 0, SEEK_SET)), "lseek");
    std::string sText;
    std::array<char, 4096> piece{};
    for (ssize_t count = 1; count > 0;)
    {
        count = read(file, piece.data(), piece.size());
        sText.append(piece.data(), static_cast<std::size_t>(Require(static_cast<int>(count), "read")));
    }
    return sText;
}

std::vector<std::string> MakeEnvironment(const CLaunch& launch)
{
    std::vector<std::string> environment;
    for (char** pVariable = environ; *pVariable != nullptr; ++pVariable)
    {
        environment.emplace_back(*pVariable);
    }
    if (!launch.faults.empty())
    {
        environment.emplace_back("LD_PRELOAD=" KINETARIUM_FAULT_LIBRARY);
        environment.emplace_back("KINETARIUM_FAULTS=" + launch.faults);
        // The address sanitizer wants to be the first library.
        environment.emplace_back("ASAN_OPTIONS=verify_asan_link_order=0");
    }
    return environment;
}

std::vector<char*> GetPointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& sText : texts)
    {
        pointers.push_back(sText.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

bool Limit(const CLaunch& launch)
{
    if (launch.maxFileSize)
    {
        const rlimit limit = {*launch.maxFileSize, *launch.maxFileSize};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
        {
            return false;
        }
    }
    // Another user than root is one already.
    return !launch.bOtherUser || geteuid() != 0 ||
           (setresgid(c_Nobody, c_Nobody, c_Nobody) == 0 && setresuid(c_Nobody, c_Nobody, c_Nobody) == 0);
}

} // namespace

CHeadlessProcess::CHeadlessProcess(const CLaunch& launch)
    : m_iOut(Require(memfd_create("out", MFD_CLOEXEC), "memfd_create")),
      m_iErr(Require(memfd_create("err", MFD_CLOEXEC), "memfd_create"))
{
    // Opened here: the other user may not be allowed to enter the folder of the build.
    const int program = Require(open(KINETARIUM_HEADLESS, O_RDONLY | O_CLOEXEC), KINETARIUM_HEADLESS);
    std::vector<std::string> arguments = launch.arguments;
    arguments.insert(arguments.begin(), "kinetarium-headless");
    const std::vector<char*> argumentPointers = GetPointers(arguments);
    std::vector<std::string> environment = MakeEnvironment(launch);
    const std::vector<char*> environmentPointers = GetPointers(environment);
    m_iProcess = Require(fork(), "fork");
    if (m_iProcess == 0)
    {
        dup2(launch.out.value_or(m_iOut), STDOUT_FILENO);
        dup2(m_iErr, STDERR_FILENO);
        if (Limit(launch))
        {
            fexecve(program, argumentPointers.data(), environmentPointers.data());
        }
        _exit(c_iStartFailed);
    }
    close(program);
}

CHeadlessProcess::~CHeadlessProcess()
{
    if (!m_Status)
    {
        kill(m_iProcess, SIGKILL);
        waitpid(m_iProcess, nullptr, 0);
    }
    close(m_iOut);
    close(m_iErr);
}

bool CHeadlessProcess::WaitForStop()
{
    int status = 0;
    Require(waitpid(m_iProcess, &status, WUNTRACED), "waitpid");
    if (!WIFSTOPPED(status))
    {
        m_Status = status;
    }
    return WIFSTOPPED(status);
}

void CHeadlessProcess::Send(int signal) const
{
    Require(kill(m_iProcess, signal), "kill");
}

void CHeadlessProcess::Continue() const
{
    Send(SIGCONT);
}

CProgramResult CHeadlessProcess::WaitForEnd()
{
    if (!m_Status)
    {
        int status = 0;
        Require(waitpid(m_iProcess, &status, 0), "waitpid");
        m_Status = status;
    }
    const int exitCode = WIFEXITED(*m_Status) ? WEXITSTATUS(*m_Status) : -WTERMSIG(*m_Status);
    if (exitCode == c_iStartFailed)
    {
        throw std::runtime_error("kinetarium-headless cannot be started");
    }
    return {exitCode, ReadAll(m_iOut), ReadAll(m_iErr)};
}

CProgramResult RunHeadless(const CLaunch& launch)
{
    return CHeadlessProcess(launch).WaitForEnd();
}
