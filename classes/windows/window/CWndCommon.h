#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "classes/core/CStringResource.h"
#include "classes/core/CWString.h"
#include "classes/windows/drawing/CPicture.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/window/CTabOrder.h"
#include "classes/windows/window/CWndToolTip.h"

class CDataCube;

// The base of every window: the shared looks (icons, cursors, font, texts, backdrop), the message pump with the tab
// order and the notice when another window comes under the pointer, and the clock in the status bar.
//
// Used only on the thread that made the windows.
class CWndCommon
{
public:
    CWndCommon();
    CWndCommon(const CWndCommon&) = delete;
    CWndCommon& operator=(const CWndCommon&) = delete;

    // Lays out the window's children in a client area of cx x cy pixels; if either is -1, in the present client area.
    virtual void SetControlPositions(int cx, int cy);
    // Called when the pointer comes over another window: a child, the window itself, or null when it has left.
    // The point is in screen coordinates.
    virtual void UpdateStatusBar(HWND hControl, const POINT& pt);
    virtual ~CWndCommon();
    virtual HWND GetWindowHandle() const;
    // Dispatches the waiting messages and returns without blocking: all of the thread's, or only those for the given
    // window and its children. False once this thread has seen a quit message, in this or in any other pump: so a quit
    // that a nested pump takes ends the outer one as well.
    virtual bool OperateMessagePump(HWND hWnd);

    HINSTANCE GetInstance() const { return m_hInstance; }
    std::wstring* GetDebugLog() const { return m_pDebugLog; }
    // Null if there is no backdrop.
    CPicture* GetBackdrop() const { return m_picBackdrop.IsEmpty() ? nullptr : &m_picBackdrop; }
    EnumPicDrawMode GetDrawMode() const { return m_eDrawMode; }
    const CStringResource& GetStringResource() const { return m_StringResource; }
    HFONT GetFont() const { return m_hFontGui; }
    HICON GetIcon(bool bLarge) const { return bLarge ? m_hIconLarge : m_hIconSmall; }
    HCURSOR GetCursor(bool bWait) const { return bWait ? m_hCursorWait : m_hCursorNormal; }
    HWND GetStatusBar() const { return m_hStatusBar; }
    bool IsClosed() const { return m_bClosed; }

    // Sends a message to a window, names it on the debug output, and returns the window's answer.
    static LRESULT SendMessage_Show(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

    // The place of the main window's backdrop in the coordinates of hChild: the client area of hRoot, relative to that
    // of hChild. With it the texture continues through a child without a seam.
    static RECT GetBackdropRect(HWND hChild, HWND hRoot);

protected:
    // For a main window. Loads icon iIconId, the cursors (0: the system's arrow and hourglass), the GUI font, the
    // texts of the language and the backdrop picture of that resource number (the second number is for a language that
    // CLibrarySettings calls right-to-left; a missing resource is replaced by a generated texture). Another language
    // may replace byLanguage: see ChooseLanguage. When a thread makes a new main window, a quit message that it saw
    // before no longer counts.
    // False without a class name or instance, or if called twice.
    bool Initialize(const wchar_t* sClassName, std::wstring* pDebugLog, HKEY hRegistryRoot, const wchar_t* sName,
                    HINSTANCE hInstance, void (*pTranslate)(CDataCube*, unsigned char), unsigned char byLanguage,
                    unsigned short uIconId, int iCursorNormal, int iCursorWait, int iBackdropPicture,
                    int iBackdropPictureRtl, EnumPicDrawMode eDrawMode);
    // For a child window: takes over everything from its parent. The backdrop shares the parent's pixels, but has a
    // drawing rectangle of its own. False without a class name, parent or instance, or if called twice.
    bool Initialize(const wchar_t* sClassName, const CWndCommon* pParent, HINSTANCE hInstance);

    // Date and time of day in the user's own format in parts 1 and 2 of the status bar. A text is sent only when it
    // has changed. The flags ask for the long form of the date, and for seconds.
    void UpdateStatusBarClock(bool bLongDate, bool bSeconds);

    HWND m_hWnd = nullptr;
    HINSTANCE m_hInstance = nullptr;
    const CWndCommon* m_pParent = nullptr;
    HWND m_hStatusBar = nullptr;
    std::wstring* m_pDebugLog = nullptr;
    CWString m_sClassName;

    bool m_bInitialised = false; // the window is complete: layout and drawing may run
    bool m_bBusy = false;        // the wait cursor is shown
    bool m_bClosed = false;
    bool m_bWindowReady = false;
    bool m_bDestroyed = false; // the window is gone: its procedure must not reach the object any more
    bool m_bOwnCursor = false;

    HCURSOR m_hOwnCursor = nullptr;
    HCURSOR m_hCursorNormal = nullptr;
    HCURSOR m_hCursorWait = nullptr;
    HICON m_hIconLarge = nullptr;
    HICON m_hIconSmall = nullptr;
    HBRUSH m_hBackgroundBrush = nullptr; // null: the class has none, all windows draw their own background
    HFONT m_hFontGui = nullptr;

    CStringResource m_StringResource;
    CTabOrder m_TabOrder;
    std::unique_ptr<CWndToolTip> m_pToolTip;

    COLORREF m_crBackground = 0;
    COLORREF m_crForeground = 0;
    COLORREF m_crSecond = 0;
    bool m_bControlFlag = false;

    mutable CPicture m_picBackdrop;
    EnumPicDrawMode m_eDrawMode = EnumPicDrawMode::Tiled;
    unsigned char m_byMargin = 0; // pixels that a status bar's parts keep free at the right edge

private:
    void LoadBackdrop(int iPicture);
    void NoticePointer(const MSG& msg);
    bool OwnsWindow(HWND hWnd) const;
    void SetStatusBarText(int iPart, const CWString& sText, CWString& sShown);

    CComScope m_Com; // screen readers reach the windows through COM
    CFontHandle m_FontOwner;
    HWND m_hHovered = nullptr;
    CWString m_sClockDate;
    CWString m_sClockTime;
};
