#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "classes/core/CWString.h"
#include "classes/core/EnumDataCtrlType.h"
#include "classes/core/PanelLayout.h"
#include "classes/windows/drawing/CPicture.h"
#include "classes/windows/panel/IPanelHost.h"
#include "classes/windows/window/CWndCommon.h"

class CDataCtrl;
class CWndButton;

// A panel of labelled settings, one per row: labels on the left, controls on the right, aligned on one edge. It draws
// the main window's backdrop behind itself without a seam. If it is lower than its rows, it scrolls by its bar, by the
// mouse wheel over any part of it, and when the focus moves to a row out of sight.
//
// Controls are found by their exact label or by their index, the number of the row from 0.
// The panel passes to the main window: a colour button's click (WM_NOTIFY 0x202, hwndFrom is the button), a list's
// notifications (WM_COMMAND), and the main-window keys (CLibrarySettings) when they are released in a control, except
// for the Escape that closes an open list. Every control has its label as accessible name.
class CDataCtrlGroup : public CWndCommon, private IPanelHost
{
public:
    // Makes the panel's window at once, empty and of size 0. GetWindowHandle() is null if that failed.
    // iFirstId: the control identifier of row 0. dLabelShare: the labels' share of the width. bFrame: a thin border.
    // pBackdrop null: the parent's backdrop.
    CDataCtrlGroup(const CWndCommon* pParent, short iFirstId, double dLabelShare, bool bFrame,
                   const CPicture* pBackdrop);
    ~CDataCtrlGroup() override;

    // Appends a row and returns its index; -1 on failure. uSize: the largest number of characters of an entry (0: no
    // limit). byFlag is for callers whose tables have one; it is unused. crText is the label's colour, crShadow that of
    // the shadow behind it (bTransparent) or of the label's background (otherwise).
    short AddControl(EnumDataCtrlType eType, EnumShowState eState, const CWString& sLabel, const CWString& sDesc,
                     unsigned short uSize, unsigned char byFlag, COLORREF crText, COLORREF crShadow, bool bTransparent);

    int GetCount() const;
    // The index of the row with that label, or of the row that contains the window (as control, label or part of
    // either); -1: none. Dividers have no window, headings only their label.
    short GetCtrlIndex(const CWString& sLabel) const;
    short GetCtrlIndex(HWND hWnd) const;
    // Part 0: the control. Part 1: its label. Null if there is none.
    HWND GetCtrlHandle(const CWString& sLabel, int iPart) const;
    // The window that takes the keyboard focus; null for headings and dividers.
    HWND GetCtrlTabHandle(short iIndex) const;
    // Null for any row but a colour button.
    CWndButton* GetButton(short iIndex) const;
    CWString GetLabel(short iIndex) const;
    CWString GetDesc(short iIndex) const;
    EnumDataCtrlType GetType(short iIndex) const;
    unsigned short GetSize(short iIndex) const;

    // Sets an entry's or button's text, or selects the list item with that text. False if there is no such row (or
    // item). The row's size limits only input of the user, not values from the program. The part is 0.
    bool SetValue(short iIndex, const wchar_t* sText, short iPart = 0);
    bool SetValue(const CWString& sLabel, std::int32_t iValue, short iPart = 0);
    bool SetValue(const CWString& sLabel, std::uint32_t uValue, short iPart = 0);
    bool SetValue(const CWString& sLabel, std::uint8_t byValue, short iPart = 0);

    // The number of an entry is an optional sign and the leading digits of its text (0 if there are none), limited to
    // the type's range. The number of a colour button is its colour, that of a list the index of its selection (-1, as
    // unsigned 0: none).
    std::int32_t GetValue_Int32(const CWString& sLabel) const;
    std::uint32_t GetValue_Uint32(const CWString& sLabel) const;
    std::uint8_t GetValue_Uint8(const CWString& sLabel) const;
    // The text of an entry or button, or of the selected item of a list.
    CWString GetValue_String(const CWString& sLabel) const;

    void ShowState_SetState(short iIndex, EnumShowState eState);
    EnumShowState ShowState_GetState(short iIndex) const;

    // The height that all rows need, in pixels.
    int GetContentHeight() const;
    // Scrolls just far enough to bring the row into view.
    void EnsureVisible(short iIndex);

    void SetControlPositions(int cx, int cy) override;
    LRESULT WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

private:
    HWND Host_GetWindow() const override;
    HINSTANCE Host_GetInstance() const override;
    HFONT Host_GetFont(bool bBold) const override;
    std::wstring* Host_GetDebugLog() const override;
    void Host_DrawBehind(HDC hDc, HWND hChild) override;
    void Host_RowFocused(short iIndex, bool bFocused) override;
    bool Host_ScrollByWheel(short iDelta) override;

    std::optional<LRESULT> On_Paint(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_EraseBackground(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_PrintClient(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Size(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Move(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_VScroll(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_MouseWheel(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_LButtonDown(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Notify(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Command(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_ControlColour(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_SetFont(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_GetFont(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_NcDestroy(WPARAM wParam, LPARAM lParam);

    bool CreatePanelWindow(bool bFrame);
    CDataCtrl* GetCtrl(short iIndex) const;
    CDataCtrl* FindCtrl(const CWString& sLabel) const;
    void ScrollTo(int iPosition);
    int GetScrollPosition() const;
    void UpdateScrollBar();
    void PlaceRows();
    CPanelLayout GetLayout() const;
    void DrawPanel(HDC hDc);

    std::vector<std::unique_ptr<CDataCtrl>> m_ctrls;
    CBrushHandle m_EntryBrush;
    CBrushHandle m_EntryBrushGreyed;
    CFontHandle m_FontBold;
    double m_dLabelShare;
    short m_iFirstId;
    LRESULT m_iConfirmed = -1; // the list item that was last announced as chosen
    int m_iWheelRest = 0;      // wheel movement that has not yet made a whole pixel
    bool m_bLayingOut = false;
};
