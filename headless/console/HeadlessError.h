#pragma once

#include <stdexcept>
#include <string>

// The program's exit codes.
constexpr int c_iExitSuccess = 0;
constexpr int c_iExitFailure = 1; // a file, the memory
constexpr int c_iExitUsage = 2;   // the command line

// An error that ends the program. Its message says what is wrong, where, and what is allowed.
class CHeadlessError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
    virtual int GetExitCode() const { return c_iExitFailure; }
};

// The end at a signal, see Interruption.h.
class CInterruptedError : public CHeadlessError
{
public:
    CInterruptedError(const std::string& sWhat, int exitCode) : CHeadlessError(sWhat), m_iExitCode(exitCode) {}
    int GetExitCode() const override { return m_iExitCode; }

private:
    int m_iExitCode;
};

// Results that cannot be written to their place.
class CWriteError : public CHeadlessError
{
public:
    using CHeadlessError::CHeadlessError;
};

// An error of the command line.
class CUsageError : public CHeadlessError
{
public:
    using CHeadlessError::CHeadlessError;
    int GetExitCode() const override { return c_iExitUsage; }
};
