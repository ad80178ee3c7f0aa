#include "tests/fuzz/FuzzTarget.h"

#include <cstdio>
#include <cstdlib>

void Require(bool bCondition, const char* sWhat)
{
    if (!bCondition)
    {
        static_cast<void>(std::fprintf(stderr, "finding: %s\n", sWhat));
        std::abort();
    }
}
