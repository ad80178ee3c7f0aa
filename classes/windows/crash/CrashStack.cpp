#include "classes/windows/crash/CrashStack.h"

#include <string_view>

namespace
{
constexpr int c_iMostCalls = 128; // endless recursion has more, all alike
constexpr DWORD c_dwPathSize = 512;

void SetName(CCrashPlace& place, const wchar_t* sPath)
{
    const std::wstring_view path(sPath);
    const wchar_t* sName = sPath + path.rfind(L'\\') + 1; // the whole path if there is no backslash
    if (WideCharToMultiByte(CP_UTF8, 0, sName, -1, place.module, sizeof place.module, nullptr, nullptr) == 0)
    {
        CFixedText(place.module, sizeof place.module).Add("(module with a long name)");
    }
}

bool IsReadable(std::uint64_t uAddress)
{
    constexpr DWORD c_dwNotReadable = PAGE_NOACCESS | PAGE_GUARD;
    MEMORY_BASIC_INFORMATION memory{};
    if (VirtualQuery(reinterpret_cast<const void*>(uAddress), &memory, sizeof memory) == 0)
    {
        return false;
    }
    return memory.State == MEM_COMMIT && (memory.Protect & c_dwNotReadable) == 0;
}

// Changes the context to that of the caller; false at the end of the stack.
bool GoToCaller(CONTEXT& context)
{
    const std::uint64_t uStack = context.Rsp;
    if (!IsReadable(uStack))
    {
        return false;
    }
    DWORD64 uImage = 0;
    RUNTIME_FUNCTION* pFunction = RtlLookupFunctionEntry(context.Rip, &uImage, nullptr);
    if (pFunction == nullptr)
    {
        // A function without an entry does not move the stack pointer, or the address is no code at all and was called
        // by mistake. In both cases the return address is on top of the stack.
        context.Rip = *reinterpret_cast<const DWORD64*>(uStack);
        context.Rsp += sizeof(DWORD64);
    }
    else
    {
        void* pHandlerData = nullptr;
        DWORD64 uFrame = 0;
        RtlVirtualUnwind(UNW_FLAG_NHANDLER, uImage, context.Rip, pFunction, &context, &pHandlerData, &uFrame, nullptr);
    }
    return context.Rip != 0 && context.Rsp > uStack;
}
} // namespace

CCrashPlace FindCrashPlace(std::uint64_t uAddress) noexcept
{
    CCrashPlace place;
    place.address = uAddress;
    // The memory of a module is one allocation, which begins at the module's base.
    MEMORY_BASIC_INFORMATION memory{};
    if (VirtualQuery(reinterpret_cast<const void*>(uAddress), &memory, sizeof memory) == 0 || memory.Type != MEM_IMAGE)
    {
        return place;
    }
    wchar_t sPath[c_dwPathSize] = L"";
    if (GetModuleFileNameW(static_cast<HMODULE>(memory.AllocationBase), sPath, c_dwPathSize) == 0)
    {
        return place;
    }
    sPath[c_dwPathSize - 1] = L'\0';
    SetName(place, sPath);
    place.offset = uAddress - reinterpret_cast<std::uint64_t>(memory.AllocationBase);
    return place;
}

void WalkCrashStack(const CONTEXT& context, void (*pVisit)(const CCrashPlace& place)) noexcept
{
    CONTEXT current = context;
    for (int i = 0; i < c_iMostCalls; ++i)
    {
        pVisit(FindCrashPlace(current.Rip));
        if (!GoToCaller(current))
        {
            return;
        }
    }
}
