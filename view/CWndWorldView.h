#pragma once

#include "classes/core/CSize.h"
#include "classes/core/CWString.h"
#include "classes/windows/drawing/CPicture.h"
#include "classes/windows/system/MessageTable.h"
#include "classes/windows/window/CWndCommon.h"
#include "simulation/CAtoms.h"
#include "simulation/EnumAtomColourMode.h"
#include "view/ColourRules.h"
#include "view/CPainterDirect2D.h"
#include "view/CPainterGdi.h"
#include "view/CreateDirect2DFactory.h"
#include "view/WorldPlacement.h"

#include <windows.h>

#include <array>
#include <cstddef>
#include <optional>

// The child window that shows the world. In each direction the world is centred if it fits, and scrolled if it is
// larger.
//
// Used only on the thread that owns the window. The simulation asks for a frame by sending WM_ERASEBKGND
// and waits until it is drawn: therefore the view reads the atoms without a lock. WM_USER + 1 destroys the
// window on behalf of another thread or window.
class CWndWorldView : public CWndCommon
{
public:
    static constexpr UINT c_uDestroyMessage = WM_USER + 1;

    // Makes the window at once if the parent has a backdrop; otherwise makes none. The atoms must outlive the view.
    // pCreateFactory makes the Direct2D factory.
    CWndWorldView(const CWndCommon* pParent, const CSize<int>& sizeWorld, const CAtoms& atoms,
                  CreateDirect2DFactoryFunction pCreateFactory = CreateDirect2DFactory);
    CWndWorldView(const CWndWorldView&) = delete;
    CWndWorldView& operator=(const CWndWorldView&) = delete;

    // Places the world in a view of cx x cy pixels; if either is -1, in the present client area.
    void SetControlPositions(int cx, int cy) override;
    ~CWndWorldView() override;
    HWND GetWindowHandle() const override;

    // Takes over size, colours and factor texts for the next run, prepares Direct2D and draws a frame.
    // Returns false if the factors are inconsistent (then nothing is drawn) or Direct2D failed (then GDI draws the
    // frames, and the next call tries Direct2D again).
    bool InitializeSettings(CSize<int>& sizeWorld, bool bNoScrolling, EnumAtomColourMode eMode, unsigned long cr1,
                            CWString& sFactor1, unsigned long cr2, CWString& sFactor2, unsigned long cr3,
                            CWString& sFactor3);

    // Without scrolling, the world is centred, there is no scroll bar, and requests to scroll do nothing. Places the
    // world anew if that is a change; the next repaint shows it.
    void SetScrolling(bool bScrolling);

    // Colours the world and draws a frame.
    void SetWorldBackgroundColour(unsigned long cr);

    // Draws one frame.
    void OnEraseBackground();

    // Width and height of the world in pixels, one per world unit.
    const CSize<int>& GetWorldSize() const { return m_sizeWorld; }

    // Rectangle of the world in client coordinates of the view; the scroll position moves it.
    CRect GetWorldRect() const;

    static LRESULT CALLBACK WndProcWrapper(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

private:
    static constexpr std::size_t c_uMessageCount = 12;

    bool InitializeWindow();
    bool RegisterViewClass() const;
    HWND CreateViewWindow() const;
    LRESULT WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

    static const std::array<CMessageEntry<CWndWorldView>, c_uMessageCount>& GetMessageTable();
    std::optional<LRESULT> On_Destroy(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Size(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_EraseBackground(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_SetCursor(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Notify(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_KeyUp(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_HorizontalScroll(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_VerticalScroll(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_LeftButtonUp(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_RightButtonUp(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_MouseWheel(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_DestroyRequest(WPARAM wParam, LPARAM lParam);
    HWND GetParentHandle() const;
    LRESULT ForwardClick(UINT uMessage, WPARAM wParam, LPARAM lParam) const;

    void OnScroll(int iBar, unsigned uRequest);
    void OnMouseWheel(short iDelta);
    void UseScrolling(bool bScrolling);
    void ShowScrollBars(const CScrollBarsShown& shown);
    int FitBar(int iBar, int iWorldLength, int iClientLength);
    CRect PlaceWorld_NoScrolling(const CSize<int>& sizeClient);
    CRect PlaceWorld_Scrolling(const CSize<int>& sizeView);
    bool HasBar(int iBar) const;
    CSize<int> GetClientSize() const;
    CSize<int> GetSizeWithoutBars() const;
    static CSize<int> GetBarSizes();
    void RedrawWorld();

    void CheckLayout();
    bool HasPixels() const;
    void CreateWorldPicture();
    CFrame MakeFrame() const;
    IPainter& ChoosePainter();

    bool m_bChangingBars = false; // the system is showing or hiding scroll bars: draw nothing
    bool m_bNoScrolling = false;
    const CAtoms* m_pAtoms = nullptr;
    CColourSettings m_pAtomColourSettings{};
    COLORREF m_crWorldBackground = 0;
    CPicture m_picWorld;
    RECT m_rcWindow{};             // window size at the last layout check, left top corner at (0, 0)
    CSize<int> m_sizeParentClient; // parent's client area at the last layout check
    CSize<int> m_sizeWorld;
    EnumAtomColourMode m_eColourMode = EnumAtomColourMode::Speed;
    CPainterGdi m_painterGdi;
    CPainterDirect2D m_painterDirect2D; // last, so that it is destroyed before the pictures that it has drawn
};
