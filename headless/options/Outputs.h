#pragma once

#include <string>
#include <vector>

struct COptions;

// A file that the options ask for.
struct COutput
{
    const char* sOption;
    std::string path; // "-" is standard output, where the option allows it
    bool bGrows;      // during the run, as FILE.partial
};

// All files that the options ask for. --picture-every numbers more of them.
std::vector<COutput> GetOutputs(const COptions& options);
