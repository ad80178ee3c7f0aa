#include "tests/sequences/RunSequence.h"

#include "tests/sequences/ShrinkSteps.h"
#include "tests/sequences/StepGenerator.h"

std::optional<std::string> RunSequence(IWindowUnderTest& window, const std::vector<CStep>& steps)
{
    CWindowModel model(window.GetScreen());
    window.Open();
    std::string sDifferences = DescribeDifferences(model.GetFacts(), window.Observe());
    std::vector<CTakenStep> group;
    for (std::size_t u = 0; u < steps.size() && sDifferences.empty(); ++u)
    {
        if (const std::optional<CTakenStep> taken = model.Take(steps[u]))
        {
            group.push_back(*taken);
        }
        const bool bGroupEnds = u + 1 == steps.size() || !steps[u + 1].bMeanwhile;
        if (bGroupEnds && !group.empty())
        {
            window.Perform(group);
            group.clear();
            sDifferences = DescribeDifferences(model.GetFacts(), window.Observe());
        }
    }
    return sDifferences.empty() ? std::nullopt : std::optional(sDifferences);
}

CSearchResult SearchSequences(IWindowUnderTest& window, std::uint64_t uFirstSeed, std::uint64_t uCount)
{
    const CScreenMeasures screen = window.GetScreen();
    for (std::uint64_t uSeed = uFirstSeed; uSeed < uFirstSeed + uCount; ++uSeed)
    {
        const std::vector<CStep> steps = GenerateSteps(uSeed, screen);
        const std::optional<std::string> differences = RunSequence(window, steps);
        if (!differences)
        {
            continue;
        }
        std::string sLast = *differences;
        const auto fails = [&](const std::vector<CStep>& tried) {
            const std::optional<std::string> found = RunSequence(window, tried);
            sLast = found.value_or(sLast);
            return found.has_value();
        };
        std::vector<CStep> shortest = ShrinkSteps(steps, fails);
        return {uSeed, sLast, std::move(shortest)};
    }
    return {};
}
