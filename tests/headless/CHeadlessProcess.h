#pragma once

#include "tests/headless/HeadlessTesting.h"

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

// How the finished program is started.
struct CLaunch
{
    std::vector<std::string> arguments{};
    std::string faults{};                  // the rules of FaultLibrary.cpp; empty: the program runs as it is
    std::optional<unsigned> maxFileSize{}; // the largest file it may write, in bytes
    std::optional<int> out{};              // its standard output, otherwise kept for CProgramResult
    bool bOtherUser = false;               // without the rights of root
};

// kinetarium-headless itself, in a process of its own. An object that is destroyed ends it.
class CHeadlessProcess
{
public:
    explicit CHeadlessProcess(const CLaunch& launch);
    CHeadlessProcess(const CHeadlessProcess&) = delete;
    CHeadlessProcess& operator=(const CHeadlessProcess&) = delete;
    ~CHeadlessProcess();

    // Waits until a fault has stopped it. False if it has ended instead.
    bool WaitForStop();

    void Send(int signal) const;
    void Continue() const;

    // Waits for its end. The exit code of a process that a signal has ended is minus that signal.
    CProgramResult WaitForEnd();

private:
    pid_t m_iProcess;
    int m_iOut;
    int m_iErr;
    std::optional<int> m_Status; // set when the process has ended
};

// Starts it and waits for its end.
CProgramResult RunHeadless(const CLaunch& launch);
