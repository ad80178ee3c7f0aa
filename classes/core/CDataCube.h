#pragma once

#include "classes/core/CWString.h"

#include <string_view>
#include <vector>

// Type of a column of wide text of varying length, by the number that ODBC gives it.
constexpr int c_iColumnTypeWideText = -9;

// Index that means "at the end" where something is added, and "all" where something is deleted.
constexpr int c_iAtEnd = -1;
constexpr int c_iAll = -1;

// What a table knows about a column. Type and width describe it to whoever shows or stores the table: cells are texts
// of any length whatever they say.
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
    // Deletes one column with its cells, or all columns (and so all rows) for c_iAll. False for an index outside.
    bool DeleteColumn(int iIndex);

    // Adds a column before iPosition, at the end for c_iAtEnd; the rows that exist get an empty cell there. False for
    // a position outside.
    bool AddColumn(const wchar_t* sName, int iType, int iPosition, int iWidth, bool bHidden);

    // Adds a row of iCells texts before iPosition, at the end for c_iAtEnd. Columns without a text get an empty cell.
    // False, and nothing added, when iCells is not the number of texts, there are more texts than columns, or the
    // position lies outside.
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

    // The text of a cell; empty for a row or column outside.
    const CWString& GetCell(int iRow, int iColumn) const;

    // The column's description; an empty one for an index outside.
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
