#pragma once

#include <utility>

// Owns the handle of a kernel object of Windows (event, timer, thread, file) and closes it. The header is plain, so
// that portable classes can hold one in their Windows half. Never throws.
class CKernelHandle
{
public:
    CKernelHandle() noexcept = default;
    // Takes the handle over; INVALID_HANDLE_VALUE counts as empty.
    explicit CKernelHandle(void* hHandle) noexcept;
    CKernelHandle(CKernelHandle&& other) noexcept : m_hHandle(std::exchange(other.m_hHandle, nullptr)) {}
    CKernelHandle& operator=(CKernelHandle&& other) noexcept;
    CKernelHandle(const CKernelHandle&) = delete;
    CKernelHandle& operator=(const CKernelHandle&) = delete;
    ~CKernelHandle() { Reset(); }

    // Null when empty.
    void* Get() const noexcept { return m_hHandle; }
    explicit operator bool() const noexcept { return m_hHandle != nullptr; }
    // Closes the handle; empty from then on.
    void Reset() noexcept;

private:
    void* m_hHandle = nullptr;
};
