#include "tests/endtoend/CSoakPlan.h"

#include <cstdlib>
#include <random>
#include <stdexcept>
#include <string>

namespace
{
using std::chrono_literals::operator""s;

constexpr CSoakPlan c_short{0, 60, 60, 100, 16, 8s, 8s};
constexpr CSoakPlan c_long{0, 60, 2000, 500, 300, 60s, 600s};
} // namespace

CSoakPlan ReadSoakPlan()
{
    const char* sForm = std::getenv(c_sSoakVariable);
    const std::string sFormText = sForm != nullptr ? sForm : "short";
    if (sFormText != "short" && sFormText != "long")
    {
        throw std::invalid_argument(std::string(c_sSoakVariable) + " is neither \"short\" nor \"long\"");
    }
    CSoakPlan plan = sFormText == "long" ? c_long : c_short;
    const char* sSeed = std::getenv(c_sSoakSeedVariable);
    plan.seed = sSeed != nullptr ? static_cast<std::uint32_t>(std::stoul(sSeed)) : std::random_device()();
    return plan;
}
