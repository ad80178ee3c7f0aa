#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "classes/core/CWString.h"
#include "classes/windows/button/ButtonAccessible.h"
#include "classes/windows/drawing/CPicture.h"
#include "classes/windows/window/CWndCommon.h"

// The notification code of a click, sent as WM_NOTIFY to the button's parent.
constexpr UINT c_uButtonClicked = 0x202;
// The notification code of a button that got the keyboard focus.
constexpr UINT c_uButtonFocused = 0x210;

constexpr const wchar_t* c_sButtonClass = L"CWndButton";

// A rounded push button in one colour, drawn here in all its states: normal, under the pointer, pressed, disabled, with
// the keyboard focus. Its text is black or white, the one with more contrast to its colour.
//
// A click by mouse, Space, Enter, BM_CLICK or a screen reader's default action sends the parent one WM_NOTIFY with
// code 0x202 (hwndFrom is the button). A main-window key released on the button is sent on to the main
// window. The window's text is the button's text (WM_SETTEXT, WM_GETTEXT); WM_SETFONT works.
class CWndButton final : private IAccessibleButton
{
public:
    CWndButton();
    ~CWndButton();
    CWndButton(const CWndButton&) = delete;
    CWndButton& operator=(const CWndButton&) = delete;

    // Creates the button as a child of the parent. The backdrop (null: the parent's) is drawn behind the rounded
    // corners, aligned with the main window's. hFont null: the parent's font. A null rectangle: empty, at 0, 0.
    bool Initialize(HINSTANCE hInstance, CWndCommon* pParent, bool bRightToLeft, const CPicture* pBackdrop,
                    const CWString& sText, HFONT hFont, bool bVisible, const RECT* pRect);

    // The two colours of the face: at rest, and while pressed. bContrastText: choose the text's colour by contrast
    // (otherwise it stays); bShade: lighten under the pointer and darken when pressed; bRedraw: draw at once.
    void SetBackground(COLORREF crNormal, COLORREF crPressed, bool bContrastText, bool bShade, bool bRedraw);
    COLORREF GetBackground() const { return m_crNormal; }
    COLORREF GetTextColour() const { return m_crText; }

    void SetText(const CWString& sText);
    CWString GetText() const;
    HWND GetWindowHandle() const { return m_hWnd; }
    std::wstring* GetDebugLog() const override { return m_pDebugLog; }

    // The name of the button for screen readers; an empty one is replaced by the button's text.
    void SetAccessibleName(const CWString& sName) { m_sAccessibleName = sName; }
    CWString GetAccessibleName() const override;
    void SetAccessibleDescription(const CWString& sDescription) { m_sAccessibleDescription = sDescription; }
    // A swatch shows only its colour: it has a firmer border, and the colour as its accessible value.
    void SetSwatch(bool bSwatch) { m_bSwatch = bSwatch; }

    // Does the same as a click of the user; does nothing while the button is disabled.
    void Click();

    LRESULT WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

private:
    CWString GetAccessibleValue() const override;
    CWString GetAccessibleDescription() const override { return m_sAccessibleDescription; }
    static const IAccessibleButton* FindButton(HWND hWnd);

    std::optional<LRESULT> On_Paint(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_EraseBackground(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_PrintClient(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_LButtonDown(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_LButtonUp(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_MouseMove(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_MouseLeave(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_CaptureChanged(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_CancelMode(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_KeyDown(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_KeyUp(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_SetFocus(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_KillFocus(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Enable(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_SetText(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_SetFont(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_GetFont(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_GetDlgCode(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_GetObject(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_ClickMessage(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Move(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_NcDestroy(WPARAM wParam, LPARAM lParam);

    void Draw(HDC hDc, const RECT& rcClient);
    void DrawBehind(HDC hDc);
    void DrawLabel(HDC hDc, const RECT& rcClient, COLORREF crText) const;
    void SetPressed(bool bPressed);
    void Invalidate() const;

    HWND m_hWnd = nullptr;
    const CWndCommon* m_pParent = nullptr;
    std::wstring* m_pDebugLog = nullptr;
    HFONT m_hFont = nullptr;
    CPicture m_picBackdrop;
    CWString m_sAccessibleName;
    CWString m_sAccessibleDescription;
    COLORREF m_crNormal;
    COLORREF m_crPressed;
    COLORREF m_crText = 0;
    bool m_bShade = true;
    bool m_bSwatch = false;
    bool m_bHover = false;
    bool m_bPressed = false;
    bool m_bMouseDown = false;
    bool m_bSpaceDown = false;
    bool m_bFocusLost = false; // disabled while it had the focus: gets it back when enabled
};
