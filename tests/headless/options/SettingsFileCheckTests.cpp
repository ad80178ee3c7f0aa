#include "headless/console/HeadlessError.h"
#include "headless/console/NearestName.h"
#include "headless/options/SettingsFileCheck.h"
#include "settings/CIniText.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace
{

std::string GetError(const std::string& sText)
{
    try
    {
        CheckSettingsFile("K.ini", CIniText(sText));
    }
    catch (const CHeadlessError& error)
    {
        EXPECT_EQ(error.GetExitCode(), 1);
        return error.what();
    }
    return "";
}

} // namespace

TEST(SettingsFileCheck, AFileWithoutTheSectionIsRefused)
{
    const std::string sError =
        "K.ini: there is no section [Settings]; allowed is a settings file as the window writes it";

    EXPECT_EQ(GetError(""), sError);
    EXPECT_EQ(GetError("Dear all,\nthe gas is ready.\n"), sError);
    EXPECT_EQ(GetError("[Setings]\nTot_atoms=5\n"), sError);
    EXPECT_EQ(GetError("[Settings\nTot_atoms=5\n"), sError);
    EXPECT_EQ(GetError(std::string("[\0S\0e\0t\0t\0i\0n\0g\0s\0]\0\n\0", 22)), sError); // UTF-16 without its mark
}

TEST(SettingsFileCheck, AnUnknownKeyIsRefusedAndTheNearestKnownOneNamed)
{
    EXPECT_EQ(GetError("[Settings]\nTot_atom=5\n"),
              "K.ini, line 2: the key 'Tot_atom' is unknown; the nearest known one is Tot_atoms");
    EXPECT_EQ(GetError("[Settings]\nTot_atoms=5\n\nWorld_widht=5\n"),
              "K.ini, line 4: the key 'World_widht' is unknown; the nearest known one is World_width");
    EXPECT_EQ(GetError("[Settings]\natom_color_1_factor=1\n"),
              "K.ini, line 2: the key 'atom_color_1_factor' is unknown; the nearest known one is Atom_colour_1_factor");
    EXPECT_EQ(GetError("[Settings]\nWnd_left=1\n"),
              "K.ini, line 2: the key 'Wnd_left' is unknown; the nearest known one is WndLeft");
    EXPECT_EQ(GetError("[Settings]\n=1\n").substr(0, 75),
              "K.ini, line 2: the key '' is unknown; known are World_width, World_height, ");
    EXPECT_THAT(GetError("[Settings]\nseed=1\n"), HasSubstr("Atom_colour_3_factor, WndLeft, WndTop, "));
}

TEST(SettingsFileCheck, ALineThatIsNoSettingIsRefused)
{
    EXPECT_EQ(GetError("[Settings]\nTot_atoms 5\n"),
              "K.ini, line 2: 'Tot_atoms 5' is no setting; allowed is key=value, or a comment after ;");
    EXPECT_EQ(GetError("[Settings]\r# many atoms\r"),
              "K.ini, line 2: '# many atoms' is no setting; allowed is key=value, or a comment after ;");
    EXPECT_EQ(GetError("Tot_atoms=5\n[Settings]\n"),
              "K.ini, line 1: 'Tot_atoms' stands before any section; settings are allowed below [Settings]");
}

// The window would read the first one and ignore the second.
TEST(SettingsFileCheck, AKeyOrTheSectionGivenTwiceIsRefused)
{
    EXPECT_EQ(GetError("[Settings]\nTot_atoms=5\n; more\ntot_ATOMS=6\n"),
              "K.ini, line 4: the key 'tot_ATOMS' is given a second time; the first is on line 2");
    EXPECT_EQ(GetError("[Settings]\nTot_atoms=5\n[Other]\n[settings]\nWorld_width=60\n"),
              "K.ini, line 4: this is a second section [Settings]; allowed is one, which is on line 1");
}

TEST(SettingsFileCheck, EverythingThatTheWindowWritesIsAllowed)
{
    EXPECT_EQ(GetError("[Settings]\r\n"), "");
    EXPECT_EQ(GetError("[Settings]\r\nWorld_width=512\r\nWorld_height=512\r\nWorld_background_colour=0\r\n"
                       "Tot_atoms=256\r\nAtoms_min_radius=3\r\nAtoms_max_radius=5\r\nAtoms_colour_mode=1\r\n"
                       "Atom_colour_1=255\r\nAtom_colour_1_factor=0.75\r\nAtom_colour_2=8421504\r\n"
                       "Atom_colour_2_factor=\r\nAtom_colour_3=65280\r\nAtom_colour_3_factor=1.25\r\n"
                       "WndLeft=-5\r\nWndTop=7\r\nWndRight=900\r\nWndBottom=700\r\n"),
              "");
}

TEST(SettingsFileCheck, CommentsBlanksAndOtherSectionsAreAllowed)
{
    EXPECT_EQ(
        GetError("; mine\n\n  [Settings]\n ; Tot_atoms=3\n\t\n  tot_atoms = 5 \n[Other]\nanything\nTot_atoms=7\n"), "");
}

TEST(NearestName, IsTheOneWithTheFewestChanges)
{
    const std::vector<std::wstring_view> names = {L"alpha", L"alphabet", L"beta"};

    EXPECT_EQ(FindNearestName(L"alpha", names), L"alpha");
    EXPECT_EQ(FindNearestName(L"ALPHABTE", names), L"alphabet");
    EXPECT_EQ(FindNearestName(L"bta", names), L"beta");
    EXPECT_EQ(FindNearestName(L"gamma", names), L"");
    EXPECT_EQ(FindNearestName(L"", names), L"");
    EXPECT_EQ(FindNearestName(std::wstring(100'000, L'a'), names), L"");
}
