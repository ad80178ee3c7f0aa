#pragma once

// As long as the object lives, every allocation of its thread fails.
class CMemoryShortage
{
public:
    CMemoryShortage();
    ~CMemoryShortage();
    CMemoryShortage(const CMemoryShortage&) = delete;
    CMemoryShortage& operator=(const CMemoryShortage&) = delete;
};
