#include "tests/fuzz/FuzzTarget.h"

#include <cstdio>
#include <cstdlib>

void Require(bool bCondition, const char* sWhat)
{
    if (!bCondition)
    {
        std::fprintf(stderr, "finding: %s\n", sWhat);
        std::abort();
    }
}
