#include "classes/core/CLibrarySettings.h"

#include "tests/classes/core/CLibrarySettingsChange.h"

#include <array>
#include <gtest/gtest.h>
#include <string_view>

namespace
{

TEST(LibrarySettings, TheDefaultsNameNoVariableNoKeyAndNoRightToLeftLanguage)
{
    const CLibrarySettings& settings = GetLibrarySettings();
    EXPECT_EQ(std::string_view(settings.sProgramName), "Program");
    EXPECT_EQ(settings.sLanguageVariable, nullptr);
    EXPECT_EQ(settings.sDebugOutputVariable, nullptr);
    EXPECT_EQ(settings.pIsRightToLeft, nullptr);
    EXPECT_TRUE(settings.mainWindowKeys.empty());
    EXPECT_EQ(GetRed(settings.crButtonFace), GetGreen(settings.crButtonFace)) << "a grey";
    EXPECT_EQ(GetRed(settings.crButtonFace), GetBlue(settings.crButtonFace)) << "a grey";
}

TEST(LibrarySettings, SettingsThatAreHandedOverCountAndTheFormerOnesComeBack)
{
    static constexpr std::array<unsigned, 1> c_Keys{42};
    CLibrarySettings settings;
    settings.sProgramName = "Other";
    settings.mainWindowKeys = c_Keys;
    const CLibrarySettings before = SetLibrarySettings(settings);
    EXPECT_EQ(std::string_view(GetLibrarySettings().sProgramName), "Other");
    ASSERT_EQ(GetLibrarySettings().mainWindowKeys.size(), 1U);
    EXPECT_EQ(GetLibrarySettings().mainWindowKeys[0], 42U);
    const CLibrarySettings other = SetLibrarySettings(before);
    EXPECT_EQ(std::string_view(other.sProgramName), "Other");
    EXPECT_EQ(std::string_view(GetLibrarySettings().sProgramName), "Program");
}

} // namespace
