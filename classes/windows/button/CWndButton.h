#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "classes/core/CWString.h"
#include "classes/windows/drawing/CPicture.h"
#include "classes/windows/window/CWndCommon.h"

// The notification code of a click, sent as WM_NOTIFY to the button's parent.
constexpr UINT c_uButtonClicked = 0x202;
// The notification code of a button that has been given the keyboard focus.
constexpr UINT c_uButtonFocused = 0x210;

constexpr const wchar_t* c_sButtonClass = L"CWndButton";

// A rounded push button in one colour, drawn here in all its states: normal, under the pointer, pressed, disabled,
// with the keyboard focus. Its text takes whichever of black and white stands out more from its colour.
//
// A click by mouse, Space, Enter, BM_CLICK or a screen reader's default action sends the parent one WM_NOTIFY with
// code 0x202 (hwndFrom is the button). F11 and Escape released on the button are sent on to the main window. The
// window's text is the button's text (WM_SETTEXT, WM_GETTEXT); WM_SETFONT works.
class CWndButton
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
    std::wstring* GetDebugLog() const { return m_pDebugLog; }

    // What a screen reader calls the button; without a name of its own it is called by its text.
    void SetAccessibleName(const CWString& sName) { m_sAccessibleName = sName; }
    CWString GetAccessibleName() const;
    void SetAccessibleDescription(const CWString& sDescription) { m_sAccessibleDescription = sDescription; }
    const CWString& GetAccessibleDescription() const { return m_sAccessibleDescription; }
    // A swatch shows its colour and nothing else: a firmer border, and the colour as its accessible value.
    void SetSwatch(bool bSwatch) { m_bSwatch = bSwatch; }
    bool IsSwatch() const { return m_bSwatch; }

    // As if the user had clicked it; nothing while it is disabled.
    void Click();

    LRESULT WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

private:
    std::optional<LRESULT> OnPaint(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnEraseBackground(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnPrintClient(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnLButtonDown(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnLButtonUp(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnMouseMove(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnMouseLeave(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnCaptureChanged(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnCancelMode(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnKeyDown(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnKeyUp(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnSetFocus(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnKillFocus(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnEnable(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnSetText(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnSetFont(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnGetFont(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnGetDlgCode(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnGetObject(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnClickMessage(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnMove(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnNcDestroy(WPARAM wParam, LPARAM lParam);

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
    bool m_bFocusLost = false; // was disabled while it had the focus, and gets it back when enabled
};
