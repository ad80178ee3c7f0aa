#pragma once

#include <cstddef>

// While an object of this class exists, some allocations of the test program fail as if memory had run out. Only one
// object may exist at a time.
class CMemoryFault
{
public:
    enum class EnumWhere : unsigned char
    {
        ThisThread, // the thread that makes the object
        OtherThreads,
    };

    // Every allocation of at least uBytes bytes fails.
    CMemoryFault(EnumWhere eWhere, std::size_t uBytes);

    // One allocation of this thread fails, after uPlace others have succeeded.
    explicit CMemoryFault(std::size_t uPlace);

    ~CMemoryFault();
    CMemoryFault(const CMemoryFault&) = delete;
    CMemoryFault& operator=(const CMemoryFault&) = delete;

    // The number of failed allocations.
    std::size_t GetCount() const;
};
