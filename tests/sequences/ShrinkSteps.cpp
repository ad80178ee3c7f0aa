#include "tests/sequences/ShrinkSteps.h"

#include <algorithm>

namespace
{
using CFails = std::function<bool(const std::vector<CStep>&)>;

std::vector<CStep> LeaveOut(const std::vector<CStep>& steps, std::size_t uFirst, std::size_t uCount)
{
    std::vector<CStep> rest(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(uFirst));
    rest.insert(rest.end(), steps.begin() + static_cast<std::ptrdiff_t>(std::min(uFirst + uCount, steps.size())),
                steps.end());
    return rest;
}

// Leaves out the first piece of that length that is not needed; false if all are.
bool LeaveOutOnePiece(std::vector<CStep>& steps, std::size_t uLength, const CFails& fails)
{
    for (std::size_t uFirst = 0; uFirst < steps.size(); uFirst += uLength)
    {
        std::vector<CStep> rest = LeaveOut(steps, uFirst, uLength);
        if (fails(rest))
        {
            steps = std::move(rest);
            return true;
        }
    }
    return false;
}

bool SeparateOneStep(std::vector<CStep>& steps, const CFails& fails)
{
    for (std::size_t u = 0; u < steps.size(); ++u)
    {
        std::vector<CStep> separated = steps;
        separated[u].bMeanwhile = false;
        if (steps[u].bMeanwhile && fails(separated))
        {
            steps = std::move(separated);
            return true;
        }
    }
    return false;
}
} // namespace

std::vector<CStep> ShrinkSteps(std::vector<CStep> steps, const CFails& fails)
{
    std::size_t uLength = (steps.size() + 1) / 2;
    while (uLength > 0)
    {
        if (LeaveOutOnePiece(steps, uLength, fails))
        {
            uLength = std::min(uLength, std::max<std::size_t>(steps.size(), 1));
        }
        else
        {
            uLength = uLength > 1 ? (uLength + 1) / 2 : 0;
        }
    }
    // A separated step may make another one superfluous.
    return SeparateOneStep(steps, fails) ? ShrinkSteps(std::move(steps), fails) : steps;
}
