#pragma once

#include <cstddef>

// As long as one exists, some allocations of the test program fail as if memory had run out. One at a time.
class CMemoryFault
{
public:
    enum class EnumWhere : unsigned char
    {
        ThisThread, // the thread that makes the object
        OtherThreads,
    };

    // Every allocation of at least that many bytes fails.
    CMemoryFault(EnumWhere eWhere, std::size_t uBytes);

    // One allocation of this thread fails: the one before which so many others have succeeded.
    explicit CMemoryFault(std::size_t uPlace);

    ~CMemoryFault();
    CMemoryFault(const CMemoryFault&) = delete;
    CMemoryFault& operator=(const CMemoryFault&) = delete;

    // How many allocations have failed.
    std::size_t GetCount() const;
};
