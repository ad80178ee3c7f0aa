#pragma once

#include "tests/endtoend/CChance.h"
#include "tests/endtoend/CKinetariumUser.h"

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>

// Someone who plays with a running Kinetarium at random: clicks, keys, the wheel, sizes, full screen, colour dialogs.
//
// The seed decides every choice, so that a storm can be played again; how far the program has come when an action
// reaches it is up to the machine. It keeps away from what ends the program, and types nothing into the entries: a
// factor once spoilt would keep the simulation from every later start.
class CStorm
{
public:
    CStorm(const CDrivenProgram& program, const CKinetariumUser& user, std::uint32_t uSeed);

    // Does one thing, then waits until the program answers. Throws std::runtime_error that names the action if the
    // program has ended or does not answer in time.
    void Act();
    // Does each kind of thing once, whatever the seed.
    void ActEachOnce();
    // Moves the mouse over the frame's edges and corners and over every control. The system keeps each pointer that it
    // has shown once, which is no leak.
    void VisitEverything();
    // Closes what is open and brings the window back to its size, without a simulation.
    void Settle();

    // How often each kind of action was done.
    const std::map<std::string, int>& GetTally() const { return m_tally; }

    // How many of them met a running simulation.
    int GetCountWhileRunning() const { return m_iWhileRunning; }

private:
    struct CAction;
    static const CAction c_actions[];

    void Do(const CAction& action);
    void ClickWorld();
    void RightClickWorld();
    void ClickAnywhere();
    void ClickButton();
    void PressAnyKey();
    void Roll();
    void DragSize();
    void DragTitle();
    void DoubleClickTitle();
    void PressFullScreenKey();
    void OpenColourDialog();

    void CloseDialogs();
    void WaitForAnswer(const std::string& sAfter) const;
    HWND FindDialog() const;
    bool IsFullScreen() const;

    const CDrivenProgram& m_program;
    const CKinetariumUser& m_user;
    CChance m_chance;
    RECT m_rcBefore{};
    std::map<std::string, int> m_tally;
    int m_iWhileRunning = 0;
};
