#pragma once

// While an object exists, every allocation of its thread fails.
class CMemoryShortage
{
public:
    CMemoryShortage();
    ~CMemoryShortage();
    CMemoryShortage(const CMemoryShortage&) = delete;
    CMemoryShortage& operator=(const CMemoryShortage&) = delete;
};
