#include "classes/core/CDataCube.h"

#include <gtest/gtest.h>

namespace
{

constexpr int c_iWidth = 255;

CDataCube MakeTable()
{
    CDataCube table;
    EXPECT_TRUE(table.AddColumn(L"IDS", c_iColumnTypeWideText, c_iAtEnd, c_iWidth, false));
    EXPECT_TRUE(table.AddColumn(L"Strings", c_iColumnTypeWideText, c_iAtEnd, c_iWidth, false));
    EXPECT_TRUE(table.AddRow(c_iAtEnd, 2, L"a", L"1"));
    EXPECT_TRUE(table.AddRow(c_iAtEnd, 2, std::wstring(L"b"), CWString(L"2")));
    return table;
}

TEST(DataCube, IsEmptyAtFirst)
{
    const CDataCube table;
    EXPECT_EQ(table.GetRowCount(), 0);
    EXPECT_EQ(table.GetColumnCount(), 0);
    EXPECT_TRUE(table.GetCell(0, 0).IsEmpty());
}

TEST(DataCube, RowsAndColumnsStayInTheOrderInWhichTheyAreAdded)
{
    const CDataCube table = MakeTable();
    ASSERT_EQ(table.GetRowCount(), 2);
    ASSERT_EQ(table.GetColumnCount(), 2);
    EXPECT_EQ(table.GetColumn(0).sName, L"IDS");
    EXPECT_EQ(table.GetColumn(1).sName, L"Strings");
    EXPECT_EQ(table.GetCell(0, 0), L"a");
    EXPECT_EQ(table.GetCell(1, 1), L"2");
}

TEST(DataCube, AColumnKeepsItsDescription)
{
    CDataCube table;
    table.AddColumn(L"hidden", c_iColumnTypeWideText, c_iAtEnd, c_iWidth, true);
    EXPECT_EQ(table.GetColumn(0).iType, c_iColumnTypeWideText);
    EXPECT_EQ(table.GetColumn(0).iWidth, c_iWidth);
    EXPECT_TRUE(table.GetColumn(0).bHidden);
}

TEST(DataCube, TextsLongerThanTheColumnsWidthAreNotTruncated)
{
    CDataCube table = MakeTable();
    const std::wstring sLong(std::size_t{10} * c_iWidth, L'x');
    table.AddRow(c_iAtEnd, 2, L"long", sLong);
    EXPECT_EQ(table.GetCell(2, 1), sLong);
}

TEST(DataCube, RowsAndColumnsAreInsertedBeforeAPosition)
{
    CDataCube table = MakeTable();
    EXPECT_TRUE(table.AddRow(0, 2, L"first", L"0"));
    EXPECT_TRUE(table.AddRow(3, 2, L"last", L"3"));
    EXPECT_TRUE(table.AddColumn(L"middle", c_iColumnTypeWideText, 1, c_iWidth, false));
    EXPECT_EQ(table.GetCell(0, 0), L"first");
    EXPECT_EQ(table.GetCell(1, 0), L"a");
    EXPECT_EQ(table.GetCell(1, 1), L"");
    EXPECT_EQ(table.GetCell(1, 2), L"1");
    EXPECT_EQ(table.GetCell(3, 2), L"3");
}

TEST(DataCube, ARowMayHaveFewerTextsThanThereAreColumns)
{
    CDataCube table = MakeTable();
    EXPECT_TRUE(table.AddRow(c_iAtEnd, 1, L"only the key"));
    EXPECT_EQ(table.GetCell(2, 0), L"only the key");
    EXPECT_EQ(table.GetCell(2, 1), L"");
}

TEST(DataCube, RowsAndColumnsThatDoNotFitAreNotAdded)
{
    CDataCube table = MakeTable();
    EXPECT_FALSE(table.AddRow(c_iAtEnd, 3, L"a", L"b"));
    EXPECT_FALSE(table.AddRow(c_iAtEnd, 3, L"a", L"b", L"c"));
    EXPECT_FALSE(table.AddRow(3, 2, L"a", L"b"));
    EXPECT_FALSE(table.AddRow(-2, 2, L"a", L"b"));
    EXPECT_FALSE(table.AddColumn(L"c", c_iColumnTypeWideText, 3, c_iWidth, false));
    EXPECT_FALSE(table.AddColumn(L"c", c_iColumnTypeWideText, -2, c_iWidth, false));
    EXPECT_EQ(table.GetRowCount(), 2);
    EXPECT_EQ(table.GetColumnCount(), 2);
    CDataCube none;
    EXPECT_FALSE(none.AddRow(c_iAtEnd, 0));
    EXPECT_FALSE(none.AddRow(c_iAtEnd, 1, L"a"));
}

TEST(DataCube, DeletingAColumnDeletesItsCells)
{
    CDataCube table = MakeTable();
    EXPECT_TRUE(table.DeleteColumn(0));
    EXPECT_EQ(table.GetColumnCount(), 1);
    EXPECT_EQ(table.GetRowCount(), 2);
    EXPECT_EQ(table.GetCell(1, 0), L"2");
    EXPECT_TRUE(table.DeleteColumn(0));
    EXPECT_EQ(table.GetRowCount(), 0);
    EXPECT_FALSE(table.DeleteColumn(0));
}

TEST(DataCube, DeletingAllColumnsEmptiesTheTable)
{
    CDataCube table = MakeTable();
    EXPECT_TRUE(table.DeleteColumn(c_iAll));
    EXPECT_EQ(table.GetColumnCount(), 0);
    EXPECT_EQ(table.GetRowCount(), 0);
    EXPECT_TRUE(table.DeleteColumn(c_iAll));
    EXPECT_FALSE(table.DeleteColumn(-2));
}

TEST(DataCube, CellsAndColumnsOutOfRangeAreEmpty)
{
    const CDataCube table = MakeTable();
    for (const int iOutside : {-1, 2, 1000})
    {
        EXPECT_TRUE(table.GetCell(iOutside, 0).IsEmpty());
        EXPECT_TRUE(table.GetCell(0, iOutside).IsEmpty());
        EXPECT_TRUE(table.GetColumn(iOutside).sName.IsEmpty());
    }
}

TEST(DataCube, ColumnsAndRowsAreFound)
{
    const CDataCube table = MakeTable();
    EXPECT_EQ(table.FindColumn(L"Strings"), 1);
    EXPECT_EQ(table.FindColumn(L"strings"), -1);
    EXPECT_EQ(table.FindRow(0, L"b"), 1);
    EXPECT_EQ(table.FindRow(1, L"b"), -1);
    EXPECT_EQ(table.FindRow(2, L""), -1);
    EXPECT_EQ(table.FindRow(-1, L"a"), -1);
}

} // namespace
