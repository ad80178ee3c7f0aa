#include "classes/windows/system/ClipboardText.h"
#include "tests/windows/CReplacedImport.h"

#include <gtest/gtest.h>

// The text that other programs leave on the clipboard. The system adds a final zero to the text of a program that goes
// through it; a program that renders its text only when it is asked for can leave it out.

namespace
{
constexpr wchar_t c_Memory[] = L"12345678";
std::size_t g_uBytes = 0; // of the memory, that belong to the text

HANDLE WINAPI GetMemory(UINT uFormat)
{
    EXPECT_EQ(uFormat, UINT{CF_UNICODETEXT});
    return const_cast<wchar_t*>(c_Memory);
}

void* WINAPI LockMemory(HGLOBAL hMemory)
{
    return hMemory;
}

SIZE_T WINAPI GetSize(HGLOBAL)
{
    return g_uBytes;
}

BOOL WINAPI UnlockMemory(HGLOBAL)
{
    return FALSE;
}

std::wstring ReadText(std::size_t uBytes)
{
    g_uBytes = uBytes;
    const CReplacedImport data("GetClipboardData", GetMemory);
    const CReplacedImport lock("GlobalLock", LockMemory);
    const CReplacedImport size("GlobalSize", GetSize);
    const CReplacedImport unlock("GlobalUnlock", UnlockMemory);
    return ReadClipboardText(nullptr);
}
} // namespace

TEST(ClipboardText, ATextWithoutAFinalZeroEndsWithItsMemory)
{
    EXPECT_EQ(ReadText(3 * sizeof(wchar_t)), L"123");
    EXPECT_EQ(ReadText(0), L"");
}

TEST(ClipboardText, ATextEndsAtItsFinalZero)
{
    EXPECT_EQ(ReadText(sizeof c_Memory), L"12345678");
}
