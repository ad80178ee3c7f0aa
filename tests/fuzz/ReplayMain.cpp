#include "tests/fuzz/FuzzTarget.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// The main function of a fuzzer that only replays: it runs the target once with each file of a corpus.
//
//   FUZZER FOLDER
//
// Exit code 0: the folder holds at least one file, and no file has a finding.
namespace
{

std::vector<std::filesystem::path> ListFiles(const char* sFolder)
{
    std::vector<std::filesystem::path> paths;
    for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(sFolder))
    {
        if (entry.is_regular_file())
        {
            paths.push_back(entry.path());
        }
    }
    // A folder lists its files in any order.
    std::sort(paths.begin(), paths.end());
    return paths;
}

void Replay(const std::filesystem::path& path)
{
    std::printf("%s\n", path.filename().string().c_str());
    // A finding ends the process: print the name of the file before.
    static_cast<void>(std::fflush(stdout));
    std::ifstream stream(path, std::ios::binary);
    Require(stream.is_open(), "a file of the corpus cannot be read");
    const std::string sBytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(sBytes.data()), sBytes.size());
}

} // namespace

int main(int count, char** pArguments)
{
    try
    {
        if (count != 2)
        {
            std::printf("usage: FUZZER FOLDER\n");
            return EXIT_FAILURE;
        }
        const std::vector<std::filesystem::path> paths = ListFiles(pArguments[1]);
        std::for_each(paths.begin(), paths.end(), Replay);
        std::printf("replayed %zu files without a finding\n", paths.size());
        return paths.empty() ? EXIT_FAILURE : EXIT_SUCCESS;
    }
    catch (const std::exception& exception)
    {
        std::printf("%s\n", exception.what());
        return EXIT_FAILURE;
    }
}
