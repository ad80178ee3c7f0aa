#pragma once

#include "headless/files/CTextSink.h"
#include "simulation/CAtoms.h"

#include <atomic>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

// A temporary folder for one test, removed at its end with all contents.
class CTemporaryFolder
{
public:
    CTemporaryFolder();
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;
    ~CTemporaryFolder();

    // The path of a file in it, in UTF-8.
    std::string GetPath(const std::string& sName) const;

    // Writes a file into the folder and returns its path.
    std::string WriteFile(const std::string& sName, std::string_view sBytes) const;

    // The names of all its entries, sorted.
    std::vector<std::string> GetNames() const;

private:
    std::filesystem::path m_Path;
};

std::string ReadFile(const std::string& sPath);

// The exit code and the output of a run.
struct CProgramResult
{
    int exitCode{};
    std::string out;
    std::string err;
};

CProgramResult RunProgram(const std::vector<std::string>& arguments, bool bErrIsTerminal = false,
                          const std::atomic<int>* pInterrupted = nullptr);

// The value of the line "name: value" of the summary; empty without such a line.
std::string GetSummaryValue(const std::string& sSummary, const std::string& sName);

CAtoms MakeAtoms(std::initializer_list<CAtom> atoms);

// An atom at rest.
CAtom MakeAtom(float x, float y, std::uint8_t uRadius);
