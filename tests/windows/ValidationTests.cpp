#include "tests/windows/CRunningApplication.h"
#include "tests/windows/MessageBoxProbe.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
constexpr const wchar_t* c_sInvalid = L"Colour factor %i has an invalid value.\n\nYou can use an absolute value, e.g., "
                                      L"123 or a percentage, e.g., 12.34%%.";
constexpr const wchar_t* c_sInvalidForSpeed =
    L"Colour factor %i has an invalid value.\n\n"
    L"In speed mode you can only use an absolute value, which denotes the speed of an atom.\n"
    L"The average speed of all the atoms is about 1.0.\n\n"
    L"Factor 1 is the maximum speed an atom may have to belong to the slow atoms (e.g., 0.75).\n"
    L"Factor 2 is not needed, because the atoms which are neither slow nor fast are automatically colour 2.\n"
    L"Factor 3 is the minimum speed an atom must have to belong to the fast atoms (e.g., 1.25).";
constexpr const wchar_t* c_sNeedTwo =
    L"You need to set exactly two of the three colour factors and leave one factor unset/empty.\n"
    L"The remaining atoms (if any) will get the empty/unset factor's colour.\n\n"
    L"Example:\nFactor 1 = 10, factor 2 = empty, factor 3 = 50%";

std::wstring TextFor(const wchar_t* sFormat, int iFactor)
{
    CWString sText;
    sText.Format(sFormat, iFactor);
    return sText.Get();
}

void ChooseMode(const CRunningApplication& application, int iMode)
{
    const HWND hList = application.FindControl(L"Colour_mode");
    SendMessageW(hList, CB_SETCURSEL, static_cast<WPARAM>(iMode), 0);
    SendMessageW(GetParent(hList), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hList), CBN_SELENDOK),
                 reinterpret_cast<LPARAM>(hList));
}

void SetFactors(const CRunningApplication& application, const wchar_t* s1, const wchar_t* s2, const wchar_t* s3)
{
    application.SetControlText(L"Colour_1_factor", s1);
    application.SetControlText(L"Colour_2_factor", s2);
    application.SetControlText(L"Colour_3_factor", s3);
}

constexpr int c_iFixed = 0;
constexpr int c_iSpeed = 1;

struct CExpectedMessage
{
    std::wstring sText;
    std::wstring sTitle;
};

void ExpectIdle(const CRunningApplication& application)
{
    EXPECT_TRUE(application.WaitForWorker(false));
    EXPECT_EQ(application.GetButtonText(), L"Start");
    application.Do([](CKinetarium& inside) {
        EXPECT_TRUE(IsWindowEnabled(CKinetariumProbe::GetStartButton(inside)));
        EXPECT_FALSE(CKinetariumProbe::HasWorker(inside));
    });
}

// Presses Start, expects these messages one after the other, closes each with its button, and expects no run.
void ExpectRefusal(const CRunningApplication& application, const std::vector<CExpectedMessage>& messages)
{
    application.PressButton();
    for (const CExpectedMessage& expected : messages)
    {
        const CShownMessage message = WaitForMessageBox(application.GetMain());
        ASSERT_NE(message.hWnd, nullptr) << "no message appeared";
        EXPECT_EQ(message.sText, expected.sText);
        EXPECT_EQ(message.sTitle, expected.sTitle);
        EXPECT_EQ(message.sButton, L"Ok");
        EXPECT_FALSE(IsWindowEnabled(application.GetMain()));
        CloseMessageBox(message);
    }
    ExpectIdle(application);
}

void StartAndStop(const CRunningApplication& application)
{
    application.Do([](CKinetarium& inside) {
        CKinetariumProbe::Start(inside);
        EXPECT_TRUE(CKinetariumProbe::HasWorker(inside));
        CKinetariumProbe::Stop(inside);
    });
}

// The world has so many atoms, and panel and file show their number.
void ExpectAtoms(const CRunningApplication& application, int iAtoms, const std::wstring& sShown)
{
    application.Do([=](CKinetarium& inside) { EXPECT_EQ(CKinetariumProbe::GetAtomCount(inside), iAtoms); });
    EXPECT_EQ(application.GetControlText(L"Tot_atoms"), sShown);
    EXPECT_EQ(CRunningApplication::ReadSetting(L"Tot_atoms"), sShown);
}

void TypeText(const CRunningApplication& application, const wchar_t* sKey, const std::wstring& sText)
{
    for (const wchar_t c : sText)
    {
        SendMessageW(application.FindControl(sKey), WM_CHAR, c, 1);
    }
}
} // namespace

TEST(Validation, ZeroAtomsBecomeOne)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"0");
    StartAndStop(application);
    ExpectAtoms(application, 1, L"1");
}

TEST(Validation, TooManyTypedAtomsBecomeAMillion)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"");
    TypeText(application, L"Tot_atoms", L"9999999"); // the entry has room for seven digits
    ASSERT_EQ(application.GetControlText(L"Tot_atoms"), L"9999999");
    StartAndStop(application);
    ExpectAtoms(application, 1'000'000, L"1000000");
}

TEST(Validation, TooManyAtomsInTheFileBecomeAMillion)
{
    CRunningApplication::WriteSetting(L"Tot_atoms", L"1000001");
    const CRunningApplication application(true);
    ASSERT_EQ(application.GetControlText(L"Tot_atoms"), L"1000001");
    StartAndStop(application);
    ExpectAtoms(application, 1'000'000, L"1000000");
}

TEST(Validation, TheRadiiAreClampedThenSwappedIntoOrder)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"4");
    application.SetControlText(L"Min_radius", L"40");
    application.SetControlText(L"Max_radius", L"2");
    StartAndStop(application);
    EXPECT_EQ(application.GetControlText(L"Min_radius"), L"2");
    EXPECT_EQ(application.GetControlText(L"Max_radius"), L"32");

    application.SetControlText(L"Min_radius", L"9");
    application.SetControlText(L"Max_radius", L"0");
    StartAndStop(application);
    EXPECT_EQ(application.GetControlText(L"Min_radius"), L"1");
    EXPECT_EQ(application.GetControlText(L"Max_radius"), L"9");
    EXPECT_EQ(CRunningApplication::ReadSetting(L"Atoms_max_radius"), L"9");
}

TEST(Validation, TheWorldIsClampedToItsLimits)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"4");
    application.SetControlText(L"Width", L"5");
    application.SetControlText(L"Height", L"20000");
    StartAndStop(application);
    EXPECT_EQ(application.GetControlText(L"Width"), L"10");
    EXPECT_EQ(application.GetControlText(L"Height"), L"9999");
}

TEST(Validation, FixedModeAcceptsACountAndAPercentage)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"4");
    ChooseMode(application, c_iFixed);
    SetFactors(application, L"10", L"", L"50%");
    StartAndStop(application);
    EXPECT_EQ(CRunningApplication::ReadSetting(L"Atom_colour_3_factor"), L"50%");
    EXPECT_EQ(CRunningApplication::ReadSetting(L"Atoms_colour_mode"), L"0");
}

TEST(Validation, ThreeFactorsAreOneTooMany)
{
    const CRunningApplication application;
    ChooseMode(application, c_iFixed);
    SetFactors(application, L"10", L"20", L"30");
    ExpectRefusal(application, {{c_sNeedTwo, L"Error"}});
}

TEST(Validation, NoFactorsAreTooFew)
{
    const CRunningApplication application;
    ChooseMode(application, c_iFixed);
    SetFactors(application, L"", L"", L"");
    ExpectRefusal(application, {{c_sNeedTwo, L"Error"}});
}

TEST(Validation, EveryInvalidFactorHasItsOwnMessage)
{
    const CRunningApplication application;
    ChooseMode(application, c_iFixed);
    SetFactors(application, L"-1", L"abc", L"0");
    ExpectRefusal(application,
                  {{TextFor(c_sInvalid, 1), L"Colour 1 factor"}, {TextFor(c_sInvalid, 2), L"Colour 2 factor"}});
}

// The title always names the first factor, even if another one is invalid.
TEST(Validation, SpeedModeRefusesPercentages)
{
    const CRunningApplication application;
    SetFactors(application, L"x", L"", L"50%");
    ExpectRefusal(application,
                  {{TextFor(c_sInvalid, 1), L"Colour 1 factor"}, {TextFor(c_sInvalidForSpeed, 3), L"Colour 1 factor"}});
}

TEST(Validation, ABlankBehindThePercentSignIsRefusedInEachMode)
{
    const CRunningApplication application;
    application.SetControlText(L"Colour_1_factor", L"50% ");
    ExpectRefusal(application, {{TextFor(c_sInvalid, 1), L"Colour 1 factor"}});
    ChooseMode(application, c_iFixed);
    ExpectRefusal(application, {{TextFor(c_sInvalid, 1), L"Colour 1 factor"}});
}

TEST(Validation, AFailedStartLeavesThePanelAndTheFileUnchanged)
{
    const CRunningApplication application;
    application.SetControlText(L"Width", L"5");
    application.SetControlText(L"Tot_atoms", L"0");
    SetFactors(application, L"50%", L"", L"1.25");
    ExpectRefusal(application, {{TextFor(c_sInvalidForSpeed, 1), L"Colour 1 factor"}});
    EXPECT_EQ(application.GetControlText(L"Width"), L"5");
    EXPECT_EQ(application.GetControlText(L"Tot_atoms"), L"0");
    EXPECT_EQ(CRunningApplication::ReadSetting(L"World_width"), L"<missing>");
}

// The radii are kept before the factors are checked: limited, but not yet in order.
TEST(Validation, AFailedStartKeepsTheRadiiLimitedAndUnswapped)
{
    const CRunningApplication application;
    application.SetControlText(L"Min_radius", L"40");
    application.SetControlText(L"Max_radius", L"0");
    SetFactors(application, L"50%", L"", L"1.25");
    ExpectRefusal(application, {{TextFor(c_sInvalidForSpeed, 1), L"Colour 1 factor"}});
    application.Do([](CKinetarium& inside) {
        EXPECT_EQ(CKinetariumProbe::GetMinRadius(inside), 32);
        EXPECT_EQ(CKinetariumProbe::GetMaxRadius(inside), 1);
    });
    EXPECT_EQ(application.GetControlText(L"Min_radius"), L"40");
    EXPECT_EQ(application.GetControlText(L"Max_radius"), L"0");
}

TEST(Validation, ExtremeNumbersNeitherStopNorBreakARun)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"50");
    ChooseMode(application, c_iFixed);
    for (const auto& [s1, s3] : std::initializer_list<std::pair<const wchar_t*, const wchar_t*>>{
             {L"1e300", L"0"}, {L"-0", L"0.0000001%"}, {L"99999999999999999999", L"100%"}, {L"150%", L"1e300%"}})
    {
        SetFactors(application, s1, L"", s3);
        StartAndStop(application);
    }
    ChooseMode(application, c_iSpeed);
    SetFactors(application, L"1e300", L"", L"99999999999999999999");
    StartAndStop(application);
}

TEST(Validation, ChoosingSpeedClearsAndGreysTheSecondFactorOnly)
{
    const CRunningApplication application;
    ChooseMode(application, c_iFixed);
    SetFactors(application, L"1", L"2", L"3");
    EXPECT_TRUE(IsWindowEnabled(application.FindControl(L"Colour_2_factor")));

    ChooseMode(application, c_iSpeed);
    EXPECT_EQ(application.GetControlText(L"Colour_1_factor"), L"1");
    EXPECT_EQ(application.GetControlText(L"Colour_2_factor"), L"");
    EXPECT_EQ(application.GetControlText(L"Colour_3_factor"), L"3");
    EXPECT_FALSE(IsWindowEnabled(application.FindControl(L"Colour_2_factor")));
    EXPECT_TRUE(IsWindowEnabled(application.FindControl(L"Colour_1_factor")));
    EXPECT_TRUE(IsWindowEnabled(application.FindControl(L"Colour_3_factor")));
}
