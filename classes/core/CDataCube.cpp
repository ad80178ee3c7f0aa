#include "classes/core/CDataCube.h"

#include <utility>

namespace
{

// Turns c_iAtEnd into the index after the last of iCount items. False if the position is out of range.
bool ResolvePosition(int iCount, int* pPosition)
{
    if (*pPosition == c_iAtEnd)
    {
        *pPosition = iCount;
    }
    return *pPosition >= 0 && *pPosition <= iCount;
}

} // namespace

bool CDataCube::DeleteColumn(int iIndex)
{
    if (iIndex == c_iAll)
    {
        m_Rows.clear();
        m_Columns.clear();
        return true;
    }
    if (iIndex < 0 || iIndex >= GetColumnCount())
    {
        return false;
    }
    m_Columns.erase(m_Columns.begin() + iIndex);
    for (Row& row : m_Rows)
    {
        row.erase(row.begin() + iIndex);
    }
    if (m_Columns.empty())
    {
        m_Rows.clear();
    }
    return true;
}

bool CDataCube::AddColumn(const wchar_t* sName, int iType, int iPosition, int iWidth, bool bHidden)
{
    if (!ResolvePosition(GetColumnCount(), &iPosition))
    {
        return false;
    }
    m_Columns.insert(m_Columns.begin() + iPosition, {CWString(sName), iType, iWidth, bHidden});
    for (Row& row : m_Rows)
    {
        row.insert(row.begin() + iPosition, CWString());
    }
    return true;
}

bool CDataCube::InsertRow(int iPosition, Row row)
{
    if (!ResolvePosition(GetRowCount(), &iPosition) || row.size() > m_Columns.size() || m_Columns.empty())
    {
        return false;
    }
    row.resize(m_Columns.size());
    m_Rows.insert(m_Rows.begin() + iPosition, std::move(row));
    return true;
}

const CWString& CDataCube::GetCell(int iRow, int iColumn) const
{
    static const CWString sEmpty;
    if (iRow < 0 || iRow >= GetRowCount() || iColumn < 0 || iColumn >= GetColumnCount())
    {
        return sEmpty;
    }
    return m_Rows[static_cast<std::size_t>(iRow)][static_cast<std::size_t>(iColumn)];
}

const CDataCubeColumn& CDataCube::GetColumn(int iColumn) const
{
    static const CDataCubeColumn none;
    if (iColumn < 0 || iColumn >= GetColumnCount())
    {
        return none;
    }
    return m_Columns[static_cast<std::size_t>(iColumn)];
}

int CDataCube::FindColumn(std::wstring_view sName) const
{
    for (int iColumn = 0; iColumn < GetColumnCount(); ++iColumn)
    {
        if (GetColumn(iColumn).sName == sName)
        {
            return iColumn;
        }
    }
    return -1;
}

int CDataCube::FindRow(int iColumn, std::wstring_view sText) const
{
    if (iColumn < 0 || iColumn >= GetColumnCount())
    {
        return -1;
    }
    for (int iRow = 0; iRow < GetRowCount(); ++iRow)
    {
        if (GetCell(iRow, iColumn) == sText)
        {
            return iRow;
        }
    }
    return -1;
}
