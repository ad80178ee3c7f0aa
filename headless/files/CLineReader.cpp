#include "headless/files/CLineReader.h"

#include "headless/console/HeadlessError.h"

#include <utility>

namespace
{

constexpr std::size_t c_uPieceBytes = std::size_t{64} * 1024;

// Far above any row of numbers. Limits the memory for a file without line ends.
constexpr std::size_t c_uMaxLineBytes = 4096;

} // namespace

CLineReader::CLineReader(std::istream& stream, std::string sName) : m_Stream(stream), m_sName(std::move(sName)) {}

bool CLineReader::ReadLine(std::string_view& sLine)
{
    std::size_t uEnd = m_sBuffer.find('\n', m_uPosition);
    while (uEnd == std::string::npos && ReadMore())
    {
        uEnd = m_sBuffer.find('\n', m_uPosition);
    }
    if (m_uPosition == m_sBuffer.size())
    {
        return false;
    }
    ++m_uLineNumber;
    if (uEnd == std::string::npos)
    {
        Fail("the file ends within this line: it has no line end and may be cut off");
    }
    sLine = std::string_view(m_sBuffer).substr(m_uPosition, uEnd - m_uPosition);
    m_uPosition = uEnd + 1;
    if (sLine.size() > c_uMaxLineBytes)
    {
        Fail("the line is longer than " + std::to_string(c_uMaxLineBytes) + " characters: this is no CSV file");
    }
    if (sLine.ends_with('\r'))
    {
        sLine.remove_suffix(1);
    }
    return true;
}

// Drops the lines that were returned and appends a piece of the file; false at its end.
bool CLineReader::ReadMore()
{
    m_sBuffer.erase(0, m_uPosition);
    m_uPosition = 0;
    const std::size_t uOldSize = m_sBuffer.size();
    if (uOldSize > c_uMaxLineBytes)
    {
        ++m_uLineNumber;
        Fail("the line is longer than " + std::to_string(c_uMaxLineBytes) + " characters: this is no CSV file");
    }
    m_sBuffer.resize(uOldSize + c_uPieceBytes);
    m_Stream.read(m_sBuffer.data() + uOldSize, static_cast<std::streamsize>(c_uPieceBytes));
    const auto uRead = static_cast<std::size_t>(m_Stream.gcount());
    m_sBuffer.resize(uOldSize + uRead);
    if (m_Stream.bad())
    {
        throw CHeadlessError(m_sName + ": cannot be read");
    }
    return uRead > 0;
}

void CLineReader::Fail(const std::string& sWhat) const
{
    throw CHeadlessError(m_sName + ", line " + std::to_string(m_uLineNumber) + ": " + sWhat);
}

void CLineReader::Fail(std::size_t uColumn, std::string_view sColumn, const std::string& sWhat) const
{
    throw CHeadlessError(m_sName + ", line " + std::to_string(m_uLineNumber) + ", column " + std::to_string(uColumn) +
                         " (" + std::string(sColumn) + "): " + sWhat);
}
