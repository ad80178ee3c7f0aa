#include "diagnostics/Guard.h"

#include <gtest/gtest.h>

TEST(Guards, AreNoexcept)
{
    const CTraceSite site{nullptr, __TIMESTAMP__};
    const auto throwing = [] { throw 5; };
    static_assert(noexcept(Guarded(site, throwing)));
    static_assert(noexcept(Traced(site, throwing)));
    static_assert(noexcept(Guarded(site, false, [] { return true; })));
    static_assert(noexcept(Traced(site, false, [] { return true; })));
}
