#pragma once

#include <cstddef>

// Counts the calls of the test program's global operator new since the object was made.
class CAllocationWatch
{
public:
    CAllocationWatch();
    std::size_t GetCount() const;

private:
    std::size_t m_uStart;
};

// While an object exists, every allocation of at least uBytes fails with std::bad_alloc, but for the first uGranted
// ones.
class CAllocationLimit
{
public:
    explicit CAllocationLimit(std::size_t uBytes, std::size_t uGranted = 0);
    ~CAllocationLimit();
    CAllocationLimit(const CAllocationLimit&) = delete;
    CAllocationLimit& operator=(const CAllocationLimit&) = delete;
};
