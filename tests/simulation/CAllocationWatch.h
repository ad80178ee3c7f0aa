#pragma once

#include <cstddef>

// The test program's global operator new, watched. Counts allocations while an object exists.
class CAllocationWatch
{
public:
    CAllocationWatch();
    std::size_t GetCount() const;

private:
    std::size_t m_uStart;
};

// While one exists, every allocation of at least that many bytes fails as if memory had run out.
class CAllocationLimit
{
public:
    explicit CAllocationLimit(std::size_t uBytes);
    ~CAllocationLimit();
    CAllocationLimit(const CAllocationLimit&) = delete;
    CAllocationLimit& operator=(const CAllocationLimit&) = delete;
};
