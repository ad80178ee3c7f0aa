#include "settings/CIniText.h"
#include "settings/SettingRows.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace
{

constexpr std::int32_t c_iLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t c_iSmallest = std::numeric_limits<std::int32_t>::min();

CSettings Read(const std::string& sLines)
{
    const CIniText file("[Settings]\n" + sLines);
    CSettings settings;
    for (const CSettingRow& row : c_SettingRows)
    {
        ReadSetting(file, row, settings);
    }
    return settings;
}

CFactors Factors(const wchar_t* sFirst, const wchar_t* sSecond, const wchar_t* sThird)
{
    return {CFactor(sFirst), CFactor(sSecond), CFactor(sThird)};
}

std::int32_t Clamp(EnumSetting eSetting, std::int32_t number)
{
    return ClampNumber(GetSettingRow(eSetting), number);
}

} // namespace

// Existing files hold these names, and a new file of the program has them in this order.
TEST(SettingRows, TheNamesInTheFileNeverChange)
{
    std::vector<std::wstring> names;
    for (const CSettingRow& row : c_SettingRows)
    {
        names.emplace_back(row.sFileKey);
    }
    const std::vector<std::wstring> expected = {
        L"World_width",          L"World_height",     L"World_background_colour", L"Tot_atoms",
        L"Atoms_min_radius",     L"Atoms_max_radius", L"Atoms_colour_mode",       L"Atom_colour_1",
        L"Atom_colour_1_factor", L"Atom_colour_2",    L"Atom_colour_2_factor",    L"Atom_colour_3",
        L"Atom_colour_3_factor"};
    EXPECT_EQ(names, expected);
}

TEST(SettingRows, EachHasItsOwnRowOfThePanelAndItsOwnPlace)
{
    CSettings settings;
    std::set<std::wstring> labels;
    std::set<CSettingPlace::CValue> places;
    for (const CSettingRow& row : c_SettingRows)
    {
        labels.insert(row.sPanelKey);
        places.insert(row.place.Find(settings));
    }
    EXPECT_EQ(labels.size(), c_SettingRows.size());
    EXPECT_EQ(places.size(), c_SettingRows.size());
}

TEST(SettingRows, SpeedModeStartsRedGreyGreenWithTwoFactors)
{
    const CSettings settings = Read("");
    EXPECT_EQ(settings.world, (CSize<int>{512, 512}));
    EXPECT_EQ(settings.background, 0u);
    EXPECT_EQ(settings.atoms, 256);
    EXPECT_EQ(settings.minRadius, 3);
    EXPECT_EQ(settings.maxRadius, 5);
    EXPECT_EQ(settings.eMode, EnumAtomColourMode::Speed);
    EXPECT_EQ(settings.colours, (CClassColours{255, 8421504, 65280}));
    EXPECT_EQ(settings.factors, Factors(L"0.75", L"", L"1.25"));
}

TEST(SettingRows, FixedModeStartsRedRedGreenInQuarters)
{
    const CSettings settings = Read("Atoms_colour_mode=0\n");
    EXPECT_EQ(settings.eMode, EnumAtomColourMode::Fixed);
    EXPECT_EQ(settings.colours, (CClassColours{255, 255, 65280}));
    EXPECT_EQ(settings.factors, Factors(L"25%", L"50%", L"25%"));
}

TEST(SettingRows, TheValuesOfTheFileAreUsed)
{
    const CSettings settings =
        Read("World_width=-5\nWorld_height=200\nWorld_background_colour=-1\nTot_atoms=0\nAtoms_min_radius=300\n"
             "Atoms_max_radius=9\nAtoms_colour_mode=0\nAtom_colour_1=1\nAtom_colour_2=2\nAtom_colour_3=3\n"
             "Atom_colour_1_factor=10\nAtom_colour_2_factor=\nAtom_colour_3_factor=50%\n");
    EXPECT_EQ(settings.world, (CSize<int>{-5, 200}));
    EXPECT_EQ(settings.background, 0xFFFFFFFFu);
    EXPECT_EQ(settings.atoms, 0);
    EXPECT_EQ(settings.minRadius, 44); // the low 8 bits of 300
    EXPECT_EQ(settings.maxRadius, 9);
    EXPECT_EQ(settings.colours, (CClassColours{1, 2, 3}));
    EXPECT_EQ(settings.factors, Factors(L"10", L"", L"50%"));
}

TEST(SettingRows, SpeedModeDoesNotReadTheSecondFactor)
{
    EXPECT_EQ(Read("Atom_colour_2_factor=7\n").factors, Factors(L"0.75", L"", L"1.25"));
    for (const CSettingRow& row : c_SettingRows)
    {
        EXPECT_TRUE(row.IsUsedIn(EnumAtomColourMode::Fixed));
        EXPECT_EQ(row.IsUsedIn(EnumAtomColourMode::Speed), row.eSetting != EnumSetting::Factor2);
    }
}

TEST(SettingRows, AFactorIsTruncatedToFifteenCharacters)
{
    EXPECT_EQ(Read("Atom_colour_1_factor=0.123456789012345678\n").factors[0], CFactor(L"0.1234567890123"));
}

TEST(SettingRows, OnlyTheLowEightBitsOfTheColourModeCount)
{
    EXPECT_EQ(Read("Atoms_colour_mode=0\n").eMode, EnumAtomColourMode::Fixed);
    EXPECT_EQ(Read("Atoms_colour_mode=256\n").eMode, EnumAtomColourMode::Fixed);
    EXPECT_EQ(Read("Atoms_colour_mode=1\n").eMode, EnumAtomColourMode::Speed);
    EXPECT_EQ(Read("Atoms_colour_mode=2\n").eMode, EnumAtomColourMode::Speed);
    EXPECT_EQ(Read("Atoms_colour_mode=-1\n").eMode, EnumAtomColourMode::Speed);
}

TEST(SettingRows, OnlyEntry1OfTheColourModeListIsSpeedMode)
{
    EXPECT_EQ(ColourModeFromIndex(0), EnumAtomColourMode::Fixed);
    EXPECT_EQ(ColourModeFromIndex(1), EnumAtomColourMode::Speed);
    EXPECT_EQ(ColourModeFromIndex(2), EnumAtomColourMode::Fixed);
    EXPECT_EQ(ColourModeFromIndex(-1), EnumAtomColourMode::Fixed);
}

TEST(SettingRows, ANumberReadsBackAsSetAndAFactorHasNone)
{
    for (const CSettingRow& row : c_SettingRows)
    {
        CSettings settings;
        SetNumber(row, settings, 1);
        SetFactorText(row, settings, L"7%");
        const bool bFactor = row.eType == EnumSettingType::Factor;
        EXPECT_EQ(GetNumber(row, settings), bFactor ? 0 : 1);
        EXPECT_EQ(GetFactorText(row, settings), bFactor ? L"7%" : L"");
    }
}

TEST(SettingRows, AColourIsAnUnsignedNumber)
{
    CSettings settings;
    const CSettingRow& row = GetSettingRow(EnumSetting::Colour1);
    SetNumber(row, settings, -1);
    EXPECT_EQ(GetNumber(row, settings), 4294967295);
}

TEST(SettingRows, TheNumberOfAtomsIsLimitedTo1To1000000)
{
    EXPECT_EQ(Clamp(EnumSetting::TotalAtoms, 0), 1);
    EXPECT_EQ(Clamp(EnumSetting::TotalAtoms, -5), 1);
    EXPECT_EQ(Clamp(EnumSetting::TotalAtoms, 1), 1);
    EXPECT_EQ(Clamp(EnumSetting::TotalAtoms, 256), 256);
    EXPECT_EQ(Clamp(EnumSetting::TotalAtoms, 1'000'000), 1'000'000);
    EXPECT_EQ(Clamp(EnumSetting::TotalAtoms, 5'000'000), 1'000'000);
    EXPECT_EQ(Clamp(EnumSetting::TotalAtoms, c_iLargest), 1'000'000);
    EXPECT_EQ(Clamp(EnumSetting::TotalAtoms, c_iSmallest), 1);
}

TEST(SettingRows, RadiiAreLimitedTo1To32)
{
    for (const EnumSetting eSetting : {EnumSetting::MinRadius, EnumSetting::MaxRadius})
    {
        EXPECT_EQ(Clamp(eSetting, 0), 1);
        EXPECT_EQ(Clamp(eSetting, 1), 1);
        EXPECT_EQ(Clamp(eSetting, 32), 32);
        EXPECT_EQ(Clamp(eSetting, 40), 32);
        EXPECT_EQ(Clamp(eSetting, 255), 32);
    }
}

TEST(SettingRows, WorldLengthsAreLimitedTo10To9999)
{
    for (const EnumSetting eSetting : {EnumSetting::WorldWidth, EnumSetting::WorldHeight})
    {
        EXPECT_EQ(Clamp(eSetting, 5), 10);
        EXPECT_EQ(Clamp(eSetting, -20000), 10);
        EXPECT_EQ(Clamp(eSetting, 512), 512);
        EXPECT_EQ(Clamp(eSetting, 20000), 9999);
    }
}

TEST(SettingRows, RadiiInTheWrongOrderAreSwapped)
{
    const auto sort = [](std::uint8_t minRadius, std::uint8_t maxRadius) {
        CSettings settings;
        settings.minRadius = minRadius;
        settings.maxRadius = maxRadius;
        SortRadii(settings);
        return std::pair<int, int>(settings.minRadius, settings.maxRadius);
    };
    EXPECT_EQ(sort(9, 4), std::pair(4, 9));
    EXPECT_EQ(sort(32, 2), std::pair(2, 32));
    EXPECT_EQ(sort(3, 5), std::pair(3, 5));
    EXPECT_EQ(sort(7, 7), std::pair(7, 7));
}
