#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "classes/core/CWString.h"
#include "classes/core/EnumDataCtrlType.h"
#include "classes/core/PanelLayout.h"
#include "classes/windows/button/CWndButton.h"
#include "classes/windows/panel/CPanelEntry.h"
#include "classes/windows/panel/CPanelLabel.h"
#include "classes/windows/panel/CPanelList.h"
#include "classes/windows/panel/IPanelHost.h"

// The parts of a row: its type, state, texts and looks.
struct CDataCtrlSpec
{
    EnumDataCtrlType eType = EnumDataCtrlType::Divider;
    EnumShowState eState = EnumShowState::InUse;
    CWString sLabel;
    CWString sDesc;
    unsigned short uSize = 0;
    COLORREF crText = 0;
    COLORREF crShadow = 0;
    bool bTransparent = true;
};

// One row of the panel: its label and the one control of its type.
class CDataCtrl
{
public:
    CDataCtrl(IPanelHost& host, short iIndex, const CDataCtrlSpec& spec);
    ~CDataCtrl();
    CDataCtrl(const CDataCtrl&) = delete;
    CDataCtrl& operator=(const CDataCtrl&) = delete;

    // Makes the windows: the label first, so that it comes before its control. pPanel is the parent of the buttons.
    bool Create(CWndCommon* pPanel, short iId);

    const CDataCtrlSpec& GetSpec() const { return m_spec; }
    EnumShowState GetState() const { return m_spec.eState; }
    // Disables or enables label and control.
    void SetState(EnumShowState eState);

    HWND GetLabelWindow() const;
    // Null for headings and dividers.
    HWND GetControlWindow() const;
    CWndButton* GetButton() const { return m_pButton.get(); }
    bool IsEntry() const { return m_pEntry != nullptr; }
    bool Owns(HWND hWnd) const;

    // Appends the row's windows to a deferred placement; the content is scrolled down by iScroll pixels.
    HDWP Place(HDWP hDefer, const CPanelRow& row, int iScroll) const;

    bool SetText(const CWString& sText);
    CWString GetText() const;
    std::int64_t GetNumber(std::int64_t iLow, std::int64_t iHigh) const;

private:
    bool CreateControl(CWndCommon* pPanel, short iId);
    bool CreateButton(CWndCommon* pPanel, short iId);

    IPanelHost& m_host;
    short m_iIndex;
    CDataCtrlSpec m_spec;
    std::unique_ptr<CPanelLabel> m_pLabel;
    std::unique_ptr<CPanelEntry> m_pEntry;
    std::unique_ptr<CPanelList> m_pList;
    std::unique_ptr<CWndButton> m_pButton;
};
