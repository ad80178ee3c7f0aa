#pragma once

#include "simulation/CAtoms.h"
#include "tests/view/windows/CTestParent.h"
#include "tests/view/windows/Direct2DSpy.h"
#include "view/CWndWorldView.h"

#include <gtest/gtest.h>

#include <memory>

// A view on a real parent window, its atoms, and a Direct2D spy that records calls and can fail.
class CViewTest : public testing::Test
{
protected:
    static constexpr unsigned long c_crSlow = 0x0000C8;   // red
    static constexpr unsigned long c_crMiddle = 0x00A000; // green
    static constexpr unsigned long c_crFast = 0xF06000;   // blue
    static constexpr unsigned long c_crWorld = 0x203040;

    CViewTest() { GetDirect2DSpy() = CDirect2DSpy(); }

    // Creates parent and view; the view covers iWidth x iHeight pixels of the parent from (20, 30) on.
    void Open(const CSize<int>& sizeWorld, int iWidth, int iHeight, EnumPicDrawMode eDrawMode = EnumPicDrawMode::Tiled,
              unsigned char byLanguage = 7);
    void MoveView(int iLeft, int iTop, int iWidth, int iHeight);

    // Adds atoms of the given radius at random positions in the world, with three speeds around the average 1.
    void Scatter(std::int32_t count, std::uint8_t uRadius);

    // Accepts the settings of a run in Speed mode with the class limits 0.75 and 1.25.
    bool Start_Speed(bool bNoScrolling = false);
    // The same in Fixed mode.
    bool Start_Fixed(const wchar_t* s1, const wchar_t* s2, const wchar_t* s3);

    LRESULT Send(UINT uMessage, WPARAM wParam = 0, LPARAM lParam = 0);
    SCROLLINFO GetBar(int iBar) const;
    bool HasBar(DWORD dwStyle) const;
    CSize<int> GetClient() const;
    HWND GetViewHandle() const { return m_pView->GetWindowHandle(); }

    std::unique_ptr<CTestParent> m_pParent;
    CSize<int> m_sizeWorld;
    CAtoms m_atoms;
    std::unique_ptr<CWndWorldView> m_pView;
};
