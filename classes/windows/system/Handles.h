#pragma once

#include <windows.h>

#include <objbase.h>

#include <utility>

// Owning types for the handles of Windows; the one for kernel objects is in classes/core/CKernelHandle.h. Each is a
// value plus its closer: movable, not copyable, and empty after a move. None of them throws.

// A GDI object (bitmap, font, brush, region). It must not be selected into a device context when it is closed.
template<class T>
class CGdiObject
{
public:
    CGdiObject() noexcept = default;
    explicit CGdiObject(T hObject) noexcept : m_hObject(hObject) {}
    CGdiObject(CGdiObject&& other) noexcept : m_hObject(other.Release()) {}
    CGdiObject& operator=(CGdiObject&& other) noexcept
    {
        if (this != &other)
        {
            Reset(other.Release());
        }
        return *this;
    }
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;
    ~CGdiObject() { Reset(); }

    T Get() const noexcept { return m_hObject; }
    explicit operator bool() const noexcept { return m_hObject != nullptr; }
    T Release() noexcept { return std::exchange(m_hObject, nullptr); }
    void Reset(T hObject = nullptr) noexcept
    {
        if (m_hObject != nullptr)
        {
            DeleteObject(m_hObject);
        }
        m_hObject = hObject;
    }

private:
    T m_hObject = nullptr;
};

using CBitmapHandle = CGdiObject<HBITMAP>;
using CFontHandle = CGdiObject<HFONT>;
using CBrushHandle = CGdiObject<HBRUSH>;

// A memory device context that is compatible with the given one (null: with the screen).
class CMemoryDc
{
public:
    explicit CMemoryDc(HDC hCompatible) noexcept : m_hDc(CreateCompatibleDC(hCompatible)) {}
    CMemoryDc(CMemoryDc&& other) noexcept : m_hDc(std::exchange(other.m_hDc, nullptr)) {}
    CMemoryDc& operator=(CMemoryDc&&) = delete;
    CMemoryDc(const CMemoryDc&) = delete;
    CMemoryDc& operator=(const CMemoryDc&) = delete;
    ~CMemoryDc()
    {
        if (m_hDc != nullptr)
        {
            DeleteDC(m_hDc);
        }
    }

    HDC Get() const noexcept { return m_hDc; }
    explicit operator bool() const noexcept { return m_hDc != nullptr; }

private:
    HDC m_hDc = nullptr;
};

// The device context of a window's client area (null: of the whole screen).
class CWindowDc
{
public:
    explicit CWindowDc(HWND hWnd) noexcept : m_hWnd(hWnd), m_hDc(GetDC(hWnd)) {}
    CWindowDc(CWindowDc&& other) noexcept : m_hWnd(other.m_hWnd), m_hDc(std::exchange(other.m_hDc, nullptr)) {}
    CWindowDc& operator=(CWindowDc&&) = delete;
    CWindowDc(const CWindowDc&) = delete;
    CWindowDc& operator=(const CWindowDc&) = delete;
    ~CWindowDc()
    {
        if (m_hDc != nullptr)
        {
            ReleaseDC(m_hWnd, m_hDc);
        }
    }

    HDC Get() const noexcept { return m_hDc; }
    explicit operator bool() const noexcept { return m_hDc != nullptr; }

private:
    HWND m_hWnd = nullptr;
    HDC m_hDc = nullptr;
};

// Selects an object into a device context for the life of this scope, then selects the former one again.
class CSelectObject
{
public:
    CSelectObject(HDC hDc, HGDIOBJ hObject) noexcept : m_hDc(hDc), m_hOld(SelectObject(hDc, hObject)) {}
    CSelectObject(const CSelectObject&) = delete;
    CSelectObject& operator=(const CSelectObject&) = delete;
    ~CSelectObject()
    {
        if (m_hOld != nullptr)
        {
            SelectObject(m_hDc, m_hOld);
        }
    }

private:
    HDC m_hDc;
    HGDIOBJ m_hOld;
};

// The thread's use of COM, for the life of this scope. If the thread already uses COM in another way, that way stays.
class CComScope
{
public:
    CComScope() noexcept = default;
    CComScope(const CComScope&) = delete;
    CComScope& operator=(const CComScope&) = delete;
    ~CComScope()
    {
        if (m_bEntered)
        {
            CoUninitialize();
        }
    }

    void Enter() noexcept
    {
        if (!m_bEntered)
        {
            m_bEntered = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
        }
    }

private:
    bool m_bEntered = false;
};

// A counted reference to a COM object. Constructed from a raw pointer, it takes over the pointer's reference.
template<class T>
class CComPtr
{
public:
    CComPtr() noexcept = default;
    explicit CComPtr(T* pObject) noexcept : m_pObject(pObject) {}
    CComPtr(const CComPtr& other) noexcept : m_pObject(other.m_pObject) { AddRef(); }
    CComPtr(CComPtr&& other) noexcept : m_pObject(std::exchange(other.m_pObject, nullptr)) {}
    CComPtr& operator=(CComPtr other) noexcept
    {
        std::swap(m_pObject, other.m_pObject);
        return *this;
    }
    ~CComPtr() { Reset(); }

    // Shares an object with its present owner.
    static CComPtr Share(T* pObject) noexcept
    {
        CComPtr shared(pObject);
        shared.AddRef();
        return shared;
    }

    T* Get() const noexcept { return m_pObject; }
    T* operator->() const noexcept { return m_pObject; }
    explicit operator bool() const noexcept { return m_pObject != nullptr; }

    void Reset(T* pObject = nullptr) noexcept
    {
        if (T* pOld = std::exchange(m_pObject, pObject); pOld != nullptr)
        {
            pOld->Release();
        }
    }

    // The place where a factory function stores its result; releases the object held before.
    T** Receive() noexcept
    {
        Reset();
        return &m_pObject;
    }

private:
    void AddRef() noexcept
    {
        if (m_pObject != nullptr)
        {
            m_pObject->AddRef();
        }
    }

    T* m_pObject = nullptr;
};
