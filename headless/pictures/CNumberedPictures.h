#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The file name of a picture during the run: "gas.png" becomes "gas-0200.png" for iteration 200 of 1000, so that sorted
// names are in the order of time. sPath is UTF-8.
std::string GetNumberedName(const std::string& sPath, std::uint64_t uIteration, std::uint64_t uIterations);

// The pictures that a run writes every few iterations.
class CNumberedPictures
{
public:
    // sPath is the name without a number, in UTF-8. A picture is made after every uEvery of uIterations.
    CNumberedPictures(std::string sPath, std::uint64_t uEvery, std::uint64_t uIterations);

    // Whether a path leads to the place of one of them, which need not exist yet.
    bool Contain(const std::string& sPath) const;

    // The paths of those that exist already and may be a file with another name too.
    std::vector<std::string> FindLinks() const;

private:
    bool HasName(const std::string& sName) const;

    std::string m_sPath;
    std::uint64_t m_uEvery;
    std::uint64_t m_uIterations;
};
