#include "tests/view/windows/CViewTest.h"

#include "classes/core/CRandom.h"
#include "tests/view/windows/SpyFactory.h"

#include <array>
#include <cstddef>

namespace
{

constexpr int c_iViewLeft = 20;
constexpr int c_iViewTop = 30;

} // namespace

void CViewTest::Open(const CSize<int>& sizeWorld, int iWidth, int iHeight, EnumPicDrawMode eDrawMode,
                     unsigned char byLanguage)
{
    m_sizeWorld = sizeWorld;
    m_pParent = std::make_unique<CTestParent>(eDrawMode, byLanguage);
    m_pView = std::make_unique<CWndWorldView>(m_pParent.get(), sizeWorld, m_atoms, CreateSpyFactory);
    ASSERT_NE(GetViewHandle(), nullptr);
    MoveView(c_iViewLeft, c_iViewTop, iWidth, iHeight);
    m_pView->SetWorldBackgroundColour(c_crWorld);
}

void CViewTest::MoveView(int iLeft, int iTop, int iWidth, int iHeight)
{
    SetWindowPos(GetViewHandle(), nullptr, iLeft, iTop, iWidth, iHeight, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CViewTest::Scatter(std::int32_t count, std::uint8_t uRadius)
{
    constexpr std::array<float, 3> c_speeds{0.5F, 1.0F, 1.5F};
    constexpr std::uint64_t c_uSeed = 20;
    CRandom random(c_uSeed);
    m_atoms.Allocate(count);
    for (std::int32_t i = 0; i < count; ++i)
    {
        CAtom& atom = m_atoms[i];
        atom.radius = uRadius;
        atom.x = random.GetRandomNumber_Float(0.0F, static_cast<float>(m_sizeWorld.cx));
        atom.y = random.GetRandomNumber_Float(0.0F, static_cast<float>(m_sizeWorld.cy));
        atom.speed = c_speeds[static_cast<std::size_t>(random.GetRandomNumber_Uint8(0, 2))];
    }
    CVelocityStatistics velocities;
    velocities.avg = 1.0F;
    m_atoms.SetVelocities(velocities);
}

bool CViewTest::Start_Speed(bool bNoScrolling)
{
    CWString sSlow(L"0.75");
    CWString sMiddle;
    CWString sFast(L"1.25");
    return m_pView->InitializeSettings(m_sizeWorld, bNoScrolling, EnumAtomColourMode::Speed, c_crSlow, sSlow,
                                       c_crMiddle, sMiddle, c_crFast, sFast);
}

bool CViewTest::Start_Fixed(const wchar_t* s1, const wchar_t* s2, const wchar_t* s3)
{
    CWString sFirst(s1);
    CWString sSecond(s2);
    CWString sThird(s3);
    return m_pView->InitializeSettings(m_sizeWorld, false, EnumAtomColourMode::Fixed, c_crSlow, sFirst, c_crMiddle,
                                       sSecond, c_crFast, sThird);
}

LRESULT CViewTest::Send(UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    return SendMessageW(GetViewHandle(), uMessage, wParam, lParam);
}

SCROLLINFO CViewTest::GetBar(int iBar) const
{
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    GetScrollInfo(GetViewHandle(), iBar, &info);
    return info;
}

bool CViewTest::HasBar(DWORD dwStyle) const
{
    return (static_cast<DWORD>(GetWindowLongPtrW(GetViewHandle(), GWL_STYLE)) & dwStyle) != 0;
}

CSize<int> CViewTest::GetClient() const
{
    RECT rc{};
    GetClientRect(GetViewHandle(), &rc);
    return CSize<int>{rc.right, rc.bottom};
}
