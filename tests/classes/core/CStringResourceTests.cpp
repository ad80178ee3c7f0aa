#include "classes/core/CStringResource.h"

#include "classes/core/CDataCube.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

constexpr unsigned char c_uOther = 9;

void FillTable(CDataCube* pTable, unsigned char uLanguage)
{
    pTable->AddColumn(L"IDS", c_iColumnTypeWideText, c_iAtEnd, 255, false);
    pTable->AddColumn(L"Strings", c_iColumnTypeWideText, c_iAtEnd, 255, false);
    pTable->AddRow(c_iAtEnd, 2, L"Width", uLanguage == c_uOther ? L"[Width]" : L"Width of the world");
    pTable->AddRow(c_iAtEnd, 2, L"Ok", L"OK");
    pTable->AddRow(c_iAtEnd, 2, L"Empty", L"");
    pTable->AddRow(c_iAtEnd, 2, L"Ok", L"the second of that key");
}

TEST(StringResource, AKeyGivesItsText)
{
    CStringResource resource;
    resource.Initialize(&FillTable, 1);
    EXPECT_EQ(resource.Get(L"Width", true), L"Width of the world");
    EXPECT_EQ(resource.Get(L"Ok", true), L"OK") << "the first row of a key counts";
    EXPECT_EQ(resource.Get(L"Empty", true), L"");
    EXPECT_EQ(resource.GetLanguage(), 1);
}

TEST(StringResource, TheDirectionIsThatOfTheLatestLanguage)
{
    CStringResource resource;
    EXPECT_FALSE(resource.IsRightToLeft());
    resource.Initialize(&FillTable, 1, true);
    EXPECT_TRUE(resource.IsRightToLeft());
    const CStringResource copy = resource;
    resource.Initialize(&FillTable, c_uOther);
    EXPECT_FALSE(resource.IsRightToLeft());
    EXPECT_TRUE(copy.IsRightToLeft());
}

TEST(StringResource, AnUnknownKeyGivesItselfOrAnEmptyText)
{
    CStringResource resource;
    resource.Initialize(&FillTable, 1);
    EXPECT_EQ(resource.Get(L"Forgotten", true), L"Forgotten");
    EXPECT_EQ(resource.Get(L"width", true), L"width");
    EXPECT_EQ(resource.Get(L"Widt", true), L"Widt");
    EXPECT_EQ(resource.Get(L"Forgotten", false), L"");
}

TEST(StringResource, ANullOrEmptyKeyGivesAnEmptyText)
{
    CStringResource resource;
    resource.Initialize(&FillTable, 1);
    EXPECT_EQ(resource.Get(L"", true), L"");
    EXPECT_EQ(resource.Get(nullptr, true), L"");
}

TEST(StringResource, BeforeItIsInitializedEveryKeyGivesItself)
{
    const CStringResource resource;
    EXPECT_EQ(resource.Get(L"Width", true), L"Width");
    EXPECT_EQ(resource.GetLanguage(), 0);
}

TEST(StringResource, AnotherLanguageReplacesAllTexts)
{
    CStringResource resource;
    resource.Initialize(&FillTable, 1);
    resource.Initialize(&FillTable, c_uOther);
    EXPECT_EQ(resource.Get(L"Width", true), L"[Width]");
    EXPECT_EQ(resource.GetLanguage(), c_uOther);
    resource.Initialize(nullptr, 2);
    EXPECT_EQ(resource.Get(L"Width", true), L"Width");
    EXPECT_EQ(resource.GetLanguage(), 2);
}

TEST(StringResource, CopiesAreIndependent)
{
    CStringResource first;
    first.Initialize(&FillTable, 1);
    const CStringResource second = first;
    first.Initialize(&FillTable, c_uOther);
    EXPECT_EQ(second.Get(L"Width", true), L"Width of the world");
}

TEST(StringResource, AThousandKeysAreAllFound)
{
    const auto fill = [](CDataCube* pTable, unsigned char) {
        pTable->AddColumn(L"IDS", c_iColumnTypeWideText, c_iAtEnd, 255, false);
        pTable->AddColumn(L"Strings", c_iColumnTypeWideText, c_iAtEnd, 255, false);
        for (int i = 999; i >= 0; --i)
        {
            pTable->AddRow(c_iAtEnd, 2, L"key" + std::to_wstring(i), L"text" + std::to_wstring(i));
        }
    };
    CStringResource resource;
    resource.Initialize(fill, 1);
    for (int i = 0; i < 1000; ++i)
    {
        EXPECT_EQ(resource.Get((L"key" + std::to_wstring(i)).c_str(), true), L"text" + std::to_wstring(i));
    }
}

} // namespace
