#include "tests/diagnostics/CMemoryShortage.h"

#include "tests/ReplacedAllocation.h"

namespace
{

thread_local bool g_bShortage = false;

} // namespace

CMemoryShortage::CMemoryShortage()
{
    g_bShortage = true;
}

CMemoryShortage::~CMemoryShortage()
{
    g_bShortage = false;
}

bool MayAllocate(std::size_t /*uBytes*/) noexcept
{
    return !g_bShortage;
}
