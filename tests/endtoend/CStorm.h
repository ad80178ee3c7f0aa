#pragma once

#include "tests/endtoend/CChance.h"
#include "tests/endtoend/CKinetariumUser.h"

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>

// Random input for a running Kinetarium: clicks, keys, the wheel, sizes, full screen, colour dialogs.
//
// The seed decides every choice, so that a storm can be repeated; only the timing depends on the machine. The storm
// avoids input that ends the program. It types nothing into the entries, because one invalid factor would prevent every
// later start.
class CStorm
{
public:
    CStorm(const CDrivenProgram& program, const CKinetariumUser& user, std::uint32_t uSeed);

    // Performs one action and waits until the program answers. Throws std::runtime_error with the action's name if the
    // program has ended or does not answer in time.
    void Act();
    // Performs each kind of action once, independent of the seed.
    void ActEachOnce();
    // Moves the mouse over the frame's edges and corners and over every control. The system caches each mouse pointer
    // after its first use; after this tour that no longer looks like a leak.
    void VisitEverything();
    // Closes everything that is open, restores the window's size, and stops the simulation.
    void Settle();

    // The number of actions of each kind.
    const std::map<std::string, int>& GetTally() const { return m_tally; }

    // The number of actions during a running simulation.
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
