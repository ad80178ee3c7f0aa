// Takes the pictures of the README and the user guide: starts the program, uses it as the guide describes, and saves
// the screen. With --worlds it takes pictures of the world in both modes, scrolled and in full screen instead.

#include "tests/endtoend/CCalmWindow.h"
#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CKinetariumUser.h"
#include "tests/endtoend/CPanelUser.h"
#include "tests/endtoend/CScreenPicture.h"
#include "tests/endtoend/Keyboard.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>

namespace
{
using Row = EnumPanelRow;

constexpr auto c_endPatience = std::chrono::milliseconds(20000);

class CPhotographer
{
public:
    CPhotographer(const std::filesystem::path& program, std::filesystem::path folder)
        : m_copy(program),
          m_program(m_copy.GetPath()),
          m_user(m_program),
          m_panel(m_user),
          m_calm(m_user, m_panel),
          m_folder(std::move(folder))
    {
    }

    void Take_GuidePictures();
    void Take_Worlds();
    void End() const
    {
        m_user.Close();
        if (const DWORD uExitCode = m_program.WaitForExit(c_endPatience); uExitCode != 0)
        {
            throw std::runtime_error("the program ended with exit code " + std::to_string(uExitCode));
        }
    }

private:
    void Take_Panel();
    void Take_Messages();
    void Take_Lowered();
    void Take_Million();
    void ChooseFixedMode() const;
    void Take_RunNamed(const char* sName) const;
    // Lets the program paint what waits to be painted, and waits until a part of the screen no longer changes.
    void WaitUntilPainted(const RECT& rc) const
    {
        RedrawWindow(m_user.GetMainWindow(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        constexpr int c_iEnough = 10;
        int iEqual = 0;
        CScreenPicture before(rc);
        WaitUntil("the changes to be painted", c_endPatience, [&] {
            CScreenPicture now(rc);
            iEqual = now == before ? iEqual + 1 : 0;
            before = std::move(now);
            return iEqual >= c_iEnough;
        });
    }

    // Waits until a part of the screen has changed several times: a slow painter needs a while for its first frames.
    static void WaitForFrames(const RECT& rc)
    {
        int iChanges = 0;
        CScreenPicture before(rc);
        WaitUntil("frames", c_endPatience, [&] {
            CScreenPicture now(rc);
            iChanges += now == before ? 0 : 1;
            before = std::move(now);
            return iChanges >= 3;
        });
    }

    void Save(const RECT& rc, const char* sName) const { Save(CScreenPicture(rc), sName); }
    void Save(const CScreenPicture& picture, const char* sName) const
    {
        picture.SavePng(m_folder / (std::string(sName) + ".png"));
        std::cout << "Saved " << sName << std::endl;
    }

    // The panel with the Start button above it.
    RECT GetPanelRectangle() const
    {
        RECT rcPanel{};
        GetWindowRect(m_panel.GetPanel(), &rcPanel);
        RECT rcButton{};
        GetWindowRect(m_user.GetButton(), &rcButton);
        RECT rc{};
        UnionRect(&rc, &rcPanel, &rcButton);
        constexpr int c_iMargin = 6; // pixels
        InflateRect(&rc, c_iMargin, c_iMargin);
        return rc;
    }

    CProgramCopy m_copy;
    CDrivenProgram m_program;
    CKinetariumUser m_user;
    CPanelUser m_panel;
    CCalmWindow m_calm;
    std::filesystem::path m_folder;
};

void CPhotographer::Take_GuidePictures()
{
    Take_Panel();
    Take_Messages();
    m_panel.Enter(Row::TotalAtoms, L"1000");
    Take_RunNamed("run");
    Take_Lowered();
    ChooseFixedMode();
    Take_RunNamed("fixed");
    Take_Million();
}

void CPhotographer::Take_Panel()
{
    m_panel.Enter(Row::TotalAtoms, L"1000");
    m_calm.FocusButton();
    m_calm.RestMouse();
    WaitUntilPainted(GetPanelRectangle());
    Save(GetPanelRectangle(), "panel-speed");
    ChooseFixedMode();
    m_calm.FocusButton();
    m_calm.RestMouse();
    WaitUntilPainted(GetPanelRectangle());
    Save(GetPanelRectangle(), "panel-fixed");
}

void CPhotographer::ChooseFixedMode() const
{
    m_panel.ChooseMode(L"Fixed");
    m_panel.Enter(Row::Factor1, L"25%");
    m_panel.Enter(Row::Factor2, L"50%");
    m_panel.Clear(Row::Factor3);
}

void CPhotographer::Take_Messages()
{
    m_panel.ChooseMode(L"Speed");
    m_panel.Enter(Row::Factor1, L"50%");
    m_panel.Enter(Row::Factor3, L"1.25");
    m_panel.ClickStart();
    const CSeenMessage message = m_panel.WaitForMessage();
    m_user.RestMouse();
    RECT rc{};
    GetWindowRect(message.hWindow, &rc);
    WaitUntilPainted(rc);
    Save(rc, "message");
    PressKey(VK_RETURN);
    m_panel.WaitUntilClosed(message.hWindow);
    m_panel.Enter(Row::Factor1, L"0.75");
}

void CPhotographer::Take_Million()
{
    m_panel.ChooseMode(L"Speed");
    m_panel.Enter(Row::Factor1, L"0.75");
    m_panel.Enter(Row::Factor3, L"1.25");
    m_panel.Enter(Row::TotalAtoms, L"1000000");
    m_panel.Enter(Row::Width, L"9999");
    m_panel.Enter(Row::Height, L"9999");
    Take_RunNamed("kinetarium");
}

void CPhotographer::Take_RunNamed(const char* sName) const
{
    RECT rcButton{};
    GetWindowRect(m_user.GetButton(), &rcButton);
    WaitUntilPainted(rcButton);
    const CScreenPicture start(rcButton);
    m_user.PressStart();
    m_calm.RestMouse();
    WaitUntilPainted(GetPanelRectangle());
    WaitUntil("the button to show its new text", c_endPatience, [&] { return CScreenPicture(rcButton) != start; });
    Save(m_calm.TakeWithStatistics(), sName);
    m_user.PressStop();
}

void CPhotographer::Take_Worlds()
{
    m_panel.Enter(Row::TotalAtoms, L"1000");
    Take_RunNamed("speed");
    ChooseFixedMode();
    Take_RunNamed("fixed");
    m_panel.Enter(Row::TotalAtoms, L"5000");
    m_panel.Enter(Row::Width, L"1500");
    m_panel.Enter(Row::Height, L"1500");
    Take_RunNamed("scrolled");
    m_user.PressStart();
    m_user.PressKeyInWindow(VK_F11);
    const RECT rcScreen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    WaitUntil("full screen", c_endPatience, [&] {
        const RECT rc = m_user.GetWorldRectangle();
        return EqualRect(&rc, &rcScreen) != FALSE && IsWindowVisible(m_user.GetStatusBar()) == FALSE;
    });
    WaitForFrames(rcScreen);
    Save(rcScreen, "full-screen");
    m_user.PressKeyInWindow(VK_ESCAPE);
    WaitUntil("the window", c_endPatience, [&] { return IsWindowVisible(m_user.GetStatusBar()) != FALSE; });
}

void CPhotographer::Take_Lowered()
{
    constexpr int c_iWidth = 1000;
    constexpr int c_iHeight = 400;
    constexpr int c_iNotches = -20;
    const RECT rcBefore = m_user.GetWindowRectangle();
    SetWindowPos(m_user.GetMainWindow(), nullptr, 0, 0, c_iWidth, c_iHeight, SWP_NOMOVE | SWP_NOZORDER);
    const RECT rcWidth = m_panel.GetControlRectangle(Row::Width);
    TurnWheel({rcWidth.left, rcWidth.top}, c_iNotches);
    WaitUntil("the last row to come into view", c_endPatience, [&] { return m_panel.IsWhollyVisible(Row::Factor3); });
    m_panel.Enter(Row::Factor3, L"1.25");
    m_calm.FocusButton();
    m_calm.RestMouse();
    WaitUntilPainted(m_user.GetWindowRectangle());
    Save(m_user.GetWindowRectangle(), "lowered");
    SetWindowPos(m_user.GetMainWindow(), nullptr, 0, 0, rcBefore.right - rcBefore.left, rcBefore.bottom - rcBefore.top,
                 SWP_NOMOVE | SWP_NOZORDER);
}
} // namespace

int main(int iArguments, char** ppArguments)
{
    std::string sProgram;
    std::string sFolder;
    CLI::App app("Takes the pictures of Kinetarium's user guide.");
    app.add_option("program", sProgram, "Kinetarium.exe")->required()->check(CLI::ExistingFile);
    app.add_option("folder", sFolder, "where the PNG files go")->required()->check(CLI::ExistingDirectory);
    bool bWorlds = false;
    app.add_flag("--worlds", bWorlds, "instead: the world in both modes, scrolled and in full screen");
    CLI11_PARSE(app, iArguments, ppArguments);
    try
    {
        CPhotographer photographer(std::filesystem::absolute(sProgram), std::filesystem::absolute(sFolder));
        if (bWorlds)
        {
            photographer.Take_Worlds();
        }
        else
        {
            photographer.Take_GuidePictures();
        }
        photographer.End();
    }
    catch (const std::exception& error)
    {
        std::cerr << "error: " << error.what() << std::endl;
        return 1;
    }
    return 0;
}
