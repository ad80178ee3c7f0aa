#include "classes/core/CKernelHandle.h"

#include <windows.h>

CKernelHandle::CKernelHandle(void* hHandle) noexcept : m_hHandle(hHandle == INVALID_HANDLE_VALUE ? nullptr : hHandle) {}

CKernelHandle& CKernelHandle::operator=(CKernelHandle&& other) noexcept
{
    if (this != &other)
    {
        Reset();
        m_hHandle = std::exchange(other.m_hHandle, nullptr);
    }
    return *this;
}

void CKernelHandle::Reset() noexcept
{
    if (m_hHandle != nullptr)
    {
        CloseHandle(m_hHandle);
        m_hHandle = nullptr;
    }
}
