#pragma once

#include "classes/core/CWString.h"

#include <string_view>
#include <vector>

// Type of a column of wide text of varying length, by the number that ODBC gives it.
constexpr int c_iColumnTypeWideText = -9;

// Index that means "at the end" where something is added, and "all" where something is deleted.
constexpr int c_iAtEnd = -1;
constexpr int c_iAll = -1;

// The description of a column. Type and width are hints for code that shows or stores the table; they do not limit the
// cells, which are texts of any length.
struct CDataCubeColumn
{
    CWString sName;
    int iType{};
    int iWidth{};
    bool bHidden{};
};

// A small table of texts with named columns.
class CDataCube
{
public:
    // Deletes one column with its cells, or all columns (and so all rows) for c_iAll. False if the index is out of
    // range.
    bool DeleteColumn(int iIndex);

    // Adds a column before iPosition, at the end for c_iAtEnd; existing rows get an empty cell there. False if the
    // position is out of range.
    bool AddColumn(const wchar_t* sName, int iType, int iPosition, int iWidth, bool bHidden);

    // Adds a row of iCells texts before iPosition, at the end for c_iAtEnd. Columns without a text get an empty cell.
    // Returns false and adds nothing if iCells is not the number of texts, if there are more texts than columns, or if
    // the position is out of range.
    template<class... A>
    bool AddRow(int iPosition, int iCells, const A&... texts)
    {
        if (iCells != static_cast<int>(sizeof...(A)))
        {
            return false;
        }
        return InsertRow(iPosition, {CWString(texts)...});
    }

    int GetRowCount() const { return static_cast<int>(m_Rows.size()); }
    int GetColumnCount() const { return static_cast<int>(m_Columns.size()); }

    // The text of a cell; empty if the row or column is out of range.
    const CWString& GetCell(int iRow, int iColumn) const;

    // The column's description; an empty one if the index is out of range.
    const CDataCubeColumn& GetColumn(int iColumn) const;

    // Index of the first column of that name, -1 when there is none.
    int FindColumn(std::wstring_view sName) const;

    // Index of the first row whose cell in iColumn is that text, -1 when there is none.
    int FindRow(int iColumn, std::wstring_view sText) const;

private:
    using Row = std::vector<CWString>;

    bool InsertRow(int iPosition, Row row);

    std::vector<CDataCubeColumn> m_Columns;
    std::vector<Row> m_Rows;
};
