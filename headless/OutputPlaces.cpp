#include "headless/OutputPlaces.h"

#include "headless/console/HeadlessError.h"
#include "headless/console/NumberText.h"
#include "headless/files/COutputFile.h"
#include "headless/files/FilePlace.h"
#include "headless/files/SystemFile.h"
#include "headless/options/COptions.h"
#include "headless/options/Outputs.h"
#include "headless/pictures/CNumberedPictures.h"

#include <filesystem>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace
{

// On systems that have them.
constexpr const char* c_sStandardInputFile = "/dev/stdin";
constexpr const char* c_sStandardOutputFile = "/dev/stdout";

struct CPlace
{
    std::string option;
    std::string path; // as the user wrote it
    bool bOutput{};
};

void AddInput(std::vector<CPlace>& places, const char* sOption, const std::optional<std::string>& path)
{
    if (path)
    {
        places.push_back({sOption, *path, false});
    }
}

void AddOutput(std::vector<CPlace>& places, const COutput& output)
{
    places.push_back({output.sOption, output.path, true});
    if (output.bGrows && output.path != c_sStandardOutput)
    {
        places.push_back({std::string("the growing file of ") + output.sOption,
                          Utf8FromPath(COutputFile::GetPartialPath(output.path)), true});
    }
}

// A terminal, a pipe or a device holds nothing that could be replaced.
void AddRedirected(std::vector<CPlace>& places, const char* sName, const char* sPath, bool bOutput)
{
    std::error_code error;
    if (fs::is_regular_file(sPath, error))
    {
        places.push_back({sName, sPath, bOutput});
    }
}

std::vector<CPlace> GetPlaces(const COptions& options)
{
    std::vector<CPlace> places;
    AddInput(places, "--load-state", options.loadState);
    AddInput(places, "--settings", options.settings);
    for (const COutput& output : GetOutputs(options))
    {
        AddOutput(places, output);
    }
    // A run may continue its own checkpoint and replace it.
    if (!options.checkpoint || !options.resume || !AreSameFile(*options.resume, *options.checkpoint))
    {
        AddInput(places, "--resume", options.resume);
    }
    AddRedirected(places, "standard output", c_sStandardOutputFile, true);
    if (options.loadState == c_sStandardInput)
    {
        AddRedirected(places, "standard input", c_sStandardInputFile, false);
    }
    return places;
}

[[noreturn]] void Refuse(const CPlace& first, const CPlace& second)
{
    throw CUsageError(first.option + ": " + Quote(first.path) + " is the same file as " + second.option + ": " +
                      Quote(second.path) + "; allowed is another file for each");
}

bool IsStream(const CPlace& place)
{
    return place.path == (place.bOutput ? c_sStandardOutput : c_sStandardInput);
}

bool AreSamePlace(const CPlace& first, const CPlace& second)
{
    if (IsStream(first) || IsStream(second))
    {
        return IsStream(first) && IsStream(second) && first.bOutput == second.bOutput;
    }
    return AreSameFile(first.path, second.path);
}

void CheckPairs(const std::vector<CPlace>& places)
{
    for (auto first = places.begin(); first != places.end(); ++first)
    {
        for (auto second = std::next(first); second != places.end(); ++second)
        {
            if ((first->bOutput || second->bOutput) && AreSamePlace(*first, *second))
            {
                Refuse(*second, *first);
            }
        }
    }
}

void CheckNumberedPictures(const COptions& options, std::uint64_t uLastIteration, std::vector<CPlace> places)
{
    const CNumberedPictures pictures(*options.picture, *options.pictureEvery, uLastIteration);
    for (const CPlace& place : places)
    {
        if (pictures.Contain(place.path))
        {
            Refuse(place, {"a picture of --picture-every", *options.picture, true});
        }
    }
    // The picture would replace the file that its link leads to.
    for (const std::string& sLink : pictures.FindLinks())
    {
        places.push_back({"--picture-every", sLink, true});
    }
    CheckPairs(places);
}

} // namespace

void CheckOutputPlaces(const COptions& options, std::uint64_t uLastIteration)
{
    const std::vector<CPlace> places = GetPlaces(options);
    CheckPairs(places);
    if (options.pictureEvery)
    {
        CheckNumberedPictures(options, uLastIteration, places);
    }
}
