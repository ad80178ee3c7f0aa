#include "headless/console/NearestName.h"

#include "classes/core/CWString.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace
{

// No known name is as long; limits the work for a wrong one.
constexpr std::size_t c_uMostCharacters = 100;

// The Levenshtein distance, computed row by row (R. A. Wagner, M. J. Fischer: The String-to-String Correction Problem,
// Journal of the ACM 21, 1974).
std::size_t CountChanges(std::wstring_view sFirst, std::wstring_view sSecond)
{
    std::vector<std::size_t> row(sSecond.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < sFirst.size(); ++i)
    {
        std::size_t uDiagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < sSecond.size(); ++j)
        {
            const bool bSame = CWString(sFirst.substr(i, 1)).CompareNoCase(sSecond.substr(j, 1)) == 0;
            const std::size_t uReplaced = uDiagonal + (bSame ? 0 : 1);
            uDiagonal = row[j + 1];
            row[j + 1] = std::min({uReplaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::wstring_view FindNearestName(std::wstring_view sWrong, const std::vector<std::wstring_view>& names)
{
    std::wstring_view sNearest;
    std::size_t uFewest = std::min(sWrong.size(), c_uMostCharacters) / 2 + 1;
    for (const std::wstring_view sName : names)
    {
        const std::size_t uChanges = CountChanges(sWrong.substr(0, c_uMostCharacters), sName);
        if (uChanges < uFewest)
        {
            uFewest = uChanges;
            sNearest = sName;
        }
    }
    return sNearest;
}
