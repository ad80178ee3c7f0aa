#include "classes/windows/panel/CDataCtrlGroup.h"

#include "classes/core/PanelLayout.h"
#include "classes/windows/drawing/SystemLooks.h"
#include "classes/windows/drawing/WindowColours.h"
#include "classes/windows/panel/CDataCtrl.h"
#include "classes/windows/system/RegisterOwnClass.h"
#include "classes/windows/system/ShowCreateWindow.h"
#include "classes/windows/system/WndProcForward.h"

#include <limits>

namespace
{
constexpr const wchar_t* c_sPanelClass = L"CDataCtrlGroup";

bool RegisterPanelClass(HINSTANCE hInstance, HCURSOR hCursor)
{
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    record.lpfnWndProc = WndProcForward<CDataCtrlGroup>;
    record.hInstance = hInstance;
    record.hCursor = hCursor;
    record.lpszClassName = c_sPanelClass;
    return RegisterOwnClass(record);
}
} // namespace

CDataCtrlGroup::CDataCtrlGroup(const CWndCommon* pParent, short iFirstId, double dLabelShare, bool bFrame,
                               const CPicture* pBackdrop)
    : m_dLabelShare(dLabelShare), m_iFirstId(iFirstId)
{
    if (pParent == nullptr || !Initialize(c_sPanelClass, pParent, pParent->GetInstance()))
    {
        return;
    }
    if (pBackdrop != nullptr)
    {
        m_picBackdrop = *pBackdrop;
    }
    m_FontBold = MakeBoldFont(m_hFontGui);
    m_EntryBrush.Reset(CreateSolidBrush(c_crEntry));
    m_EntryBrushGreyed.Reset(CreateSolidBrush(c_crEntryGreyed));
    if (CreatePanelWindow(bFrame))
    {
        m_bWindowReady = true;
    }
}

// Destroys the rows first, and with them their windows: then the panel's window is empty.
CDataCtrlGroup::~CDataCtrlGroup()
{
    m_bWindowReady = false;
    m_ctrls.clear();
    if (m_hWnd == nullptr)
    {
        return;
    }
    WndProc_SetObject(m_hWnd, nullptr);
    DestroyWindow(m_hWnd);
    m_hWnd = nullptr;
}

bool CDataCtrlGroup::CreatePanelWindow(bool bFrame)
{
    if (!RegisterPanelClass(m_hInstance, m_hCursorNormal))
    {
        return false;
    }
    const DWORD uStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | (bFrame ? WS_BORDER : 0u);
    const HWND hWnd = CreateWindowExW(WS_EX_CONTROLPARENT, c_sPanelClass, nullptr, uStyle, 0, 0, 0, 0,
                                      m_pParent->GetWindowHandle(), nullptr, m_hInstance, this);
    if (hWnd == nullptr)
    {
        return false;
    }
    m_hWnd = hWnd;
    ShowCreateWindow(m_pDebugLog, this, c_sPanelClass, L"m_hWnd", m_hWnd, nullptr);
    return true;
}

short CDataCtrlGroup::AddControl(EnumDataCtrlType eType, EnumShowState eState, const CWString& sLabel,
                                 const CWString& sDesc, unsigned short uSize, unsigned char, COLORREF crText,
                                 COLORREF crShadow, bool bTransparent)
{
    if (m_hWnd == nullptr || GetCount() >= std::numeric_limits<short>::max())
    {
        return -1;
    }
    const short iIndex = static_cast<short>(GetCount());
    const CDataCtrlSpec spec{eType, eState, sLabel, sDesc, uSize, crText, crShadow, bTransparent};
    IPanelHost& host = *this;
    auto pCtrl = std::make_unique<CDataCtrl>(host, iIndex, spec);
    if (!pCtrl->Create(this, static_cast<short>(m_iFirstId + iIndex)))
    {
        return -1;
    }
    m_ctrls.push_back(std::move(pCtrl));
    SetControlPositions(-1, -1);
    return iIndex;
}

CDataCtrl* CDataCtrlGroup::GetCtrl(short iIndex) const
{
    return iIndex >= 0 && iIndex < GetCount() ? m_ctrls[static_cast<std::size_t>(iIndex)].get() : nullptr;
}

CDataCtrl* CDataCtrlGroup::FindCtrl(const CWString& sLabel) const
{
    return GetCtrl(GetCtrlIndex(sLabel));
}

int CDataCtrlGroup::GetCount() const
{
    return static_cast<int>(m_ctrls.size());
}

short CDataCtrlGroup::GetCtrlIndex(const CWString& sLabel) const
{
    const auto count = static_cast<short>(GetCount());
    for (short i = 0; i < count; ++i)
    {
        if (GetCtrl(i)->GetSpec().sLabel == sLabel)
        {
            return i;
        }
    }
    return -1;
}

short CDataCtrlGroup::GetCtrlIndex(HWND hWnd) const
{
    const auto count = static_cast<short>(GetCount());
    for (short i = 0; i < count; ++i)
    {
        if (GetCtrl(i)->Owns(hWnd))
        {
            return i;
        }
    }
    return -1;
}

HWND CDataCtrlGroup::GetCtrlHandle(const CWString& sLabel, int iPart) const
{
    const CDataCtrl* const pCtrl = FindCtrl(sLabel);
    if (pCtrl == nullptr)
    {
        return nullptr;
    }
    return iPart == 0 ? pCtrl->GetControlWindow() : iPart == 1 ? pCtrl->GetLabelWindow() : nullptr;
}

HWND CDataCtrlGroup::GetCtrlTabHandle(short iIndex) const
{
    const CDataCtrl* const pCtrl = GetCtrl(iIndex);
    return pCtrl != nullptr ? pCtrl->GetControlWindow() : nullptr;
}

CWndButton* CDataCtrlGroup::GetButton(short iIndex) const
{
    const CDataCtrl* const pCtrl = GetCtrl(iIndex);
    return pCtrl != nullptr ? pCtrl->GetButton() : nullptr;
}

CWString CDataCtrlGroup::GetLabel(short iIndex) const
{
    const CDataCtrl* const pCtrl = GetCtrl(iIndex);
    return pCtrl != nullptr ? pCtrl->GetSpec().sLabel : CWString();
}

CWString CDataCtrlGroup::GetDesc(short iIndex) const
{
    const CDataCtrl* const pCtrl = GetCtrl(iIndex);
    return pCtrl != nullptr ? pCtrl->GetSpec().sDesc : CWString();
}

EnumDataCtrlType CDataCtrlGroup::GetType(short iIndex) const
{
    const CDataCtrl* const pCtrl = GetCtrl(iIndex);
    return pCtrl != nullptr ? pCtrl->GetSpec().eType : EnumDataCtrlType::Divider;
}

unsigned short CDataCtrlGroup::GetSize(short iIndex) const
{
    const CDataCtrl* const pCtrl = GetCtrl(iIndex);
    return pCtrl != nullptr ? pCtrl->GetSpec().uSize : static_cast<unsigned short>(0);
}

bool CDataCtrlGroup::SetValue(short iIndex, const wchar_t* sText, short)
{
    CDataCtrl* const pCtrl = GetCtrl(iIndex);
    return pCtrl != nullptr && pCtrl->SetText(CWString(sText));
}

bool CDataCtrlGroup::SetValue(const CWString& sLabel, std::int32_t iValue, short iPart)
{
    return SetValue(GetCtrlIndex(sLabel), CWString(iValue).c_str(), iPart);
}

bool CDataCtrlGroup::SetValue(const CWString& sLabel, std::uint32_t uValue, short iPart)
{
    return SetValue(GetCtrlIndex(sLabel), CWString(uValue).c_str(), iPart);
}

bool CDataCtrlGroup::SetValue(const CWString& sLabel, std::uint8_t byValue, short iPart)
{
    return SetValue(sLabel, std::uint32_t{byValue}, iPart);
}

namespace
{
template<class T>
T ReadNumber(const CDataCtrl* pCtrl)
{
    if (pCtrl == nullptr)
    {
        return 0;
    }
    return static_cast<T>(pCtrl->GetNumber(std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}
} // namespace

std::int32_t CDataCtrlGroup::GetValue_Int32(const CWString& sLabel) const
{
    return ReadNumber<std::int32_t>(FindCtrl(sLabel));
}

std::uint32_t CDataCtrlGroup::GetValue_Uint32(const CWString& sLabel) const
{
    return ReadNumber<std::uint32_t>(FindCtrl(sLabel));
}

std::uint8_t CDataCtrlGroup::GetValue_Uint8(const CWString& sLabel) const
{
    return ReadNumber<std::uint8_t>(FindCtrl(sLabel));
}

CWString CDataCtrlGroup::GetValue_String(const CWString& sLabel) const
{
    const CDataCtrl* const pCtrl = FindCtrl(sLabel);
    return pCtrl != nullptr ? pCtrl->GetText() : CWString();
}

void CDataCtrlGroup::ShowState_SetState(short iIndex, EnumShowState eState)
{
    CDataCtrl* const pCtrl = GetCtrl(iIndex);
    if (pCtrl == nullptr || pCtrl->GetState() == eState)
    {
        return;
    }
    pCtrl->SetState(eState);
    InvalidateRect(m_hWnd, nullptr, FALSE); // the panel draws the frames of the entries
}

EnumShowState CDataCtrlGroup::ShowState_GetState(short iIndex) const
{
    const CDataCtrl* const pCtrl = GetCtrl(iIndex);
    return pCtrl != nullptr ? pCtrl->GetState() : EnumShowState::Greyed;
}
