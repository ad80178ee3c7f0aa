#include "tests/endtoend/CSoakPlan.h"

#include "classes/core/EnvironmentText.h"

#include <random>
#include <stdexcept>
#include <string>

namespace
{
using std::chrono::seconds;

constexpr CSoakPlan c_short{0, 60, 60, 102, 24, seconds(8), seconds(8)};
constexpr CSoakPlan c_long{0, 60, 2100, 540, 300, seconds(60), seconds(600)};
} // namespace

CSoakPlan ReadSoakPlan()
{
    const std::wstring sForm = GetEnvironmentText(c_sSoakVariable).value_or(L"short");
    if (sForm != L"short" && sForm != L"long")
    {
        throw std::invalid_argument(std::string(c_sSoakVariable) + " is neither \"short\" nor \"long\"");
    }
    CSoakPlan plan = sForm == L"long" ? c_long : c_short;
    const std::optional<std::wstring> sSeed = GetEnvironmentText(c_sSoakSeedVariable);
    plan.seed = sSeed ? static_cast<std::uint32_t>(std::stoul(*sSeed)) : std::random_device()();
    return plan;
}
