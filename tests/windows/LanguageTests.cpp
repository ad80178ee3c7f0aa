#include "tests/classes/core/CEnvironmentChange.h"
#include "tests/windows/CRunningApplication.h"

#include <gtest/gtest.h>

// The language reaches the windows: its texts, and the direction that its row in the table of languages gives.

namespace
{
constexpr const char* c_sVariable = "KINETARIUM_LANGUAGE";
constexpr LONG_PTR c_iMirrored = WS_EX_LAYOUTRTL | WS_EX_RTLREADING | WS_EX_RIGHT;

struct CLookOfLanguage
{
    std::wstring sButton;
    LONG_PTR iViewDirection = 0;
    LONG_PTR iButtonDirection = 0;
};

CLookOfLanguage RunIn(const char* sLanguage)
{
    const CEnvironmentChange change(c_sVariable, sLanguage);
    CRunningApplication application;
    CLookOfLanguage look;
    application.Do([&](CKinetarium& inside) {
        const HWND hButton = CKinetariumProbe::GetStartButton(inside);
        look.sButton = GetText(hButton);
        look.iViewDirection = GetWindowLongPtrW(CKinetariumProbe::GetView(inside), GWL_EXSTYLE) & c_iMirrored;
        look.iButtonDirection = GetWindowLongPtrW(hButton, GWL_EXSTYLE) & WS_EX_RTLREADING;
    });
    return look;
}
} // namespace

TEST(Language, ArabicIsLaidOutAndReadFromRightToLeft)
{
    const CLookOfLanguage look = RunIn("1");
    EXPECT_EQ(look.sButton, L"[Start]");
    EXPECT_EQ(look.iViewDirection, c_iMirrored);
    EXPECT_EQ(look.iButtonDirection, WS_EX_RTLREADING);
}

TEST(Language, EveryOtherLanguageIsLaidOutFromLeftToRight)
{
    for (const char* sLanguage : {"2", "11"})
    {
        const CLookOfLanguage look = RunIn(sLanguage);
        EXPECT_EQ(look.sButton, L"[Start]");
        EXPECT_EQ(look.iViewDirection, 0);
        EXPECT_EQ(look.iButtonDirection, 0);
    }
}

TEST(Language, WithoutTheVariableItIsEnglish)
{
    const CLookOfLanguage look = RunIn(nullptr);
    EXPECT_EQ(look.sButton, L"Start");
    EXPECT_EQ(look.iViewDirection, 0);
    EXPECT_EQ(look.iButtonDirection, 0);
}
