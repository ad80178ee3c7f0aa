#include "classes/windows/system/MessageTable.h"

#include "tests/classes/windows/CTestMainWindow.h"

#include <gtest/gtest.h>

namespace
{
struct CTableUser
{
    std::optional<LRESULT> OnFirst(WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam) + 1; }
    std::optional<LRESULT> OnPass(WPARAM, LPARAM) { return std::nullopt; }
};

constexpr CMessageEntry<CTableUser> c_table[] = {{WM_USER, &CTableUser::OnFirst},
                                                 {WM_GETTEXTLENGTH, &CTableUser::OnPass}};
} // namespace

TEST(MessageTable, AHandlersAnswerIsReturnedAndWithoutAHandlerTheSystemAnswers)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(300, 200));
    CTableUser user;
    EXPECT_EQ(DispatchMessage_Table(user, c_table, window.GetWindowHandle(), WM_USER, 4, 0), 5);
    EXPECT_EQ(DispatchMessage_Table(user, c_table, window.GetWindowHandle(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(DispatchMessage_Table(user, c_table, window.GetWindowHandle(), WM_USER + 9, 0, 0), 0);
}
