#pragma once

#include <windows.h>

#include <string>

#include "classes/core/CWString.h"
#include "classes/windows/system/Handles.h"

// The window of a message: a dialog with an icon, the text, and one button.
class CMessageBoxDialog
{
public:
    CMessageBoxDialog(const CWString& sText, const CWString& sTitle, const CWString& sLabel, HFONT hFont,
                      std::wstring* pDebugLog);
    ~CMessageBoxDialog();
    CMessageBoxDialog(const CMessageBoxDialog&) = delete;
    CMessageBoxDialog& operator=(const CMessageBoxDialog&) = delete;

    // Shows it in the middle of its owner (null: of the screen). False if the window could not be made.
    bool Create(HINSTANCE hInstance, HWND hOwner);
    void Destroy();

    HWND GetWindowHandle() const { return m_hWnd; }
    // True if the user has answered or the window has gone with its owner.
    bool IsClosed() const { return m_bAnswered || m_hWnd == nullptr; }
    bool WasAnswered() const { return m_bAnswered; }

private:
    static INT_PTR CALLBACK DialogProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR On_Message(UINT uMessage, WPARAM wParam, LPARAM lParam);
    void CreateControls(HINSTANCE hInstance);
    HWND CreateControl(HINSTANCE hInstance, const wchar_t* sClass, const wchar_t* sText, DWORD uStyle, const RECT& rc,
                       int iId);
    void PlaceWindow(const SIZE& sizeClient);
    void Paint(HDC hDc) const;
    SIZE MeasureText(const CWString& sText, int iMaxWidth) const;

    CWString m_sText;
    CWString m_sTitle;
    CWString m_sLabel;
    HFONT m_hFont;
    std::wstring* m_pDebugLog;
    HWND m_hWnd = nullptr;
    HWND m_hOwner = nullptr;
    int m_iFooterTop = 0;
    bool m_bAnswered = false;
};
