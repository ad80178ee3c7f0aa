#pragma once

#include <windows.h>

#include "classes/core/CWString.h"

class CWndCommon;

// A modal message on a window: title, text with its line breaks, one labelled button.
class CMessageBox
{
public:
    // The window that owns the message (null: none).
    explicit CMessageBox(const CWndCommon* pOwner) : m_pOwner(pOwner) {}

    // Shows the message and returns when it is closed: by the button, Enter, Space, Escape or the close box (1), or
    // because the thread was asked to quit (0; the outer pumps see the quit too). Meanwhile the owner is disabled.
    // Afterwards its former state and the focus are restored. iButtons is the number of buttons; a message has one.
    int ShowDialog(const CWString& sText, const CWString& sTitle, int iButtons, const CWString& sLabel);

private:
    const CWndCommon* m_pOwner;
};
