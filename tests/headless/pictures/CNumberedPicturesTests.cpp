#include "headless/pictures/CNumberedPictures.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(NumberedPictures, TheNumberStandsBeforeTheExtension)
{
    EXPECT_EQ(GetNumberedName("gas.png", 200, 1000), "gas-0200.png");
    EXPECT_EQ(GetNumberedName("gas.png", 1000, 1000), "gas-1000.png");
    EXPECT_EQ(GetNumberedName("gas", 7, 9), "gas-7");
    EXPECT_EQ(GetNumberedName("a.b/gas", 7, 9), "a.b/gas-7");
    EXPECT_EQ(GetNumberedName("a.b\\gas.x.png", 7, 9), "a.b\\gas.x-7.png");
    EXPECT_EQ(GetNumberedName(".gas", 7, 9), ".gas-7");
}

TEST(NumberedPictures, AreRecognisedByTheirNumbers)
{
    const CTemporaryFolder folder;
    const CNumberedPictures pictures(folder.GetPath("gas-1.png"), 30, 100);

    EXPECT_TRUE(pictures.Contain(folder.GetPath("gas-1-030.png")));
    EXPECT_TRUE(pictures.Contain(folder.GetPath("gas-1-090.png")));
    for (const char* const sName : {"gas-1.png", "gas-1-000.png", "gas-1-031.png", "gas-1-120.png", "gas-1-30.png",
                                    "gas-1-0030.png", "gas-1-030.PNX", "gas-2-030.png", "gas-1-030", "x/gas-1-030.png"})
    {
        EXPECT_FALSE(pictures.Contain(folder.GetPath(sName))) << sName;
    }
    EXPECT_FALSE(CNumberedPictures(folder.GetPath("gas"), 30, 29).Contain(folder.GetPath("gas-30")));
    EXPECT_TRUE(CNumberedPictures(folder.GetPath("gas"), 30, 30).Contain(folder.GetPath("gas-30")));
}

#ifndef _WIN32

TEST(NumberedPictures, ThoseThatAreLinksAreFound)
{
    const CTemporaryFolder folder;
    folder.WriteFile("gas-10.png", "no link");
    const std::string sOther = folder.WriteFile("a.csv", "x");
    std::filesystem::create_symlink(sOther, folder.GetPath("gas-20.png"));
    std::filesystem::create_hard_link(sOther, folder.GetPath("gas-30.png"));
    std::filesystem::create_symlink(sOther, folder.GetPath("gas-35.png"));
    const CNumberedPictures pictures(folder.GetPath("gas.png"), 10, 50);

    std::vector<std::string> links = pictures.FindLinks();
    std::sort(links.begin(), links.end());
    EXPECT_EQ(links, (std::vector<std::string>{folder.GetPath("gas-20.png"), folder.GetPath("gas-30.png")}));
}

#endif
