#pragma once

#include "tests/endtoend/CPanelUser.h"
#include "tests/endtoend/CScreenPicture.h"

#include <windows.h>

#include <array>

// Brings the window of a driven program into a state that looks the same in every picture: without the mouse, without a
// blinking caret, with a statistics line. The methods throw std::runtime_error as those of CKinetariumUser.
class CCalmWindow
{
public:
    // At that moment no control may look as if the mouse were over it.
    CCalmWindow(const CKinetariumUser& user, const CPanelUser& panel);

    // Takes the mouse to the status bar, which does not react to it, and waits until no control looks as if the mouse
    // were over it.
    void RestMouse() const;
    // Gives the focus to the Start button: the caret of an entry blinks.
    void FocusButton() const;
    // Takes a picture of the window that has a statistics line. The status bar may get its line long before it shows
    // it, because the program draws the world first.
    CScreenPicture TakeWithStatistics() const;

private:
    // The colours of the button and of the list beside their texts. Under the mouse they are lighter.
    std::array<COLORREF, 2> GetColours() const;

    const CKinetariumUser& m_user;
    const CPanelUser& m_panel;
    std::array<COLORREF, 2> m_aColours{};
};
