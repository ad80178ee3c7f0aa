#pragma once

#include <cstdint>
#include <istream>
#include <string>
#include <string_view>

// Reads a text file line by line through a small buffer and counts the lines for messages.
class CLineReader
{
public:
    // sName is the file's name in messages. The stream must be binary and outlive this object.
    CLineReader(std::istream& stream, std::string sName);

    // The next line without its end ("\n" or "\r\n"); false at the end of the file. The text is valid until the next
    // call. Throws CHeadlessError for a line without an end, an overlong line or a file that cannot be read.
    bool ReadLine(std::string_view& sLine);

    // Throws CHeadlessError: "name, line 3: what".
    [[noreturn]] void Fail(const std::string& sWhat) const;

    // The same with the number (from 1) and the name of a column: "name, line 3, column 2 (y): what".
    [[noreturn]] void Fail(std::size_t uColumn, std::string_view sColumn, const std::string& sWhat) const;

private:
    bool ReadMore();

    std::istream& m_Stream;
    std::string m_sName;
    std::string m_sBuffer;
    std::size_t m_uPosition = 0;     // of the next line in the buffer
    std::uint64_t m_uLineNumber = 0; // of the line that was read last, from 1
};
