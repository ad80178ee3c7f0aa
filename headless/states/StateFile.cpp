#include "headless/states/StateFile.h"

#include "headless/console/HeadlessError.h"
#include "headless/console/NumberText.h"
#include "headless/files/CLineReader.h"
#include "headless/files/IByteSink.h"
#include "headless/files/InputFile.h"
#include "simulation/CAtoms.h"
#include "simulation/SimulationConstants.h"
#include "simulation/SpeedStatistics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace
{

constexpr std::string_view c_sHeader = "x,y,vx,vy,radius";
constexpr std::size_t c_uFloatColumns = 4;
constexpr std::size_t c_uRadiusColumn = c_uFloatColumns;
constexpr std::size_t c_uColumns = c_uFloatColumns + 1;
constexpr std::array<std::string_view, c_uColumns> c_sColumns = {"x", "y", "vx", "vy", "radius"};
constexpr std::array<float CAtom::*, c_uFloatColumns> c_FloatFields = {&CAtom::x, &CAtom::y, &CAtom::vx, &CAtom::vy};
constexpr std::uint64_t c_uMaxStoredRadius = std::numeric_limits<std::uint8_t>::max();

using CCells = std::array<std::string_view, c_uColumns>;

[[noreturn]] void FailAt(const CLineReader& reader, std::size_t uColumn, const std::string& sWhat)
{
    reader.Fail(uColumn + 1, c_sColumns[uColumn], sWhat);
}

CCells SplitRow(const CLineReader& reader, std::string_view sLine)
{
    const auto uFound = static_cast<std::size_t>(std::count(sLine.begin(), sLine.end(), ',')) + 1;
    if (uFound != c_uColumns)
    {
        const std::string sCount = std::to_string(uFound) + (uFound == 1 ? " column" : " columns");
        const std::string sWhat =
            "the row has " + sCount + " instead of " + std::to_string(c_uColumns) + " (" + std::string(c_sHeader) + ")";
        FailAt(reader, std::min(uFound, c_uColumns) - 1, sWhat);
    }
    CCells cells;
    for (std::string_view& sCell : cells)
    {
        const std::size_t uComma = sLine.find(',');
        sCell = sLine.substr(0, uComma);
        sLine.remove_prefix(uComma == std::string_view::npos ? sLine.size() : uComma + 1);
    }
    return cells;
}

std::uint8_t ParseRadius(const CLineReader& reader, std::string_view sText)
{
    const std::optional<std::uint64_t> uRadius = ParseWholeNumber(sText);
    if (!uRadius || *uRadius == 0 || *uRadius > c_uMaxStoredRadius)
    {
        FailAt(reader, c_uRadiusColumn, Quote(sText) + " is no whole number from 1 to 255");
    }
    return static_cast<std::uint8_t>(*uRadius);
}

CAtom ParseRow(const CLineReader& reader, std::string_view sLine)
{
    const CCells cells = SplitRow(reader, sLine);
    CAtom atom;
    for (std::size_t uColumn = 0; uColumn < c_uFloatColumns; ++uColumn)
    {
        const std::string sError = ParseFiniteFloat(cells[uColumn], atom.*c_FloatFields[uColumn]);
        if (!sError.empty())
        {
            FailAt(reader, uColumn, sError);
        }
    }
    atom.radius = ParseRadius(reader, cells[c_uRadiusColumn]);
    atom.speed = std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy);
    if (!std::isfinite(atom.speed))
    {
        reader.Fail("the speed of this atom does not fit a 32-bit float");
    }
    return atom;
}

std::vector<CAtom> ReadRows(CLineReader& reader)
{
    std::vector<CAtom> rows;
    std::string_view sLine;
    while (reader.ReadLine(sLine))
    {
        if (rows.size() == static_cast<std::size_t>(c_iMaxTotalAtoms))
        {
            reader.Fail("more than " + std::to_string(c_iMaxTotalAtoms) + " atoms");
        }
        rows.push_back(ParseRow(reader, sLine));
    }
    return rows;
}

void AppendRow(std::string& sText, const CAtom& atom, std::int32_t index)
{
    for (std::size_t uColumn = 0; uColumn < c_uFloatColumns; ++uColumn)
    {
        const float value = atom.*c_FloatFields[uColumn];
        if (!std::isfinite(value))
        {
            throw CWriteError("the state cannot be saved: " + std::string(c_sColumns[uColumn]) + " of atom " +
                              std::to_string(index + 1) + " is not finite");
        }
        AppendFloat(sText, value);
        sText += ',';
    }
    sText += std::to_string(static_cast<unsigned>(atom.radius));
    sText += '\n';
}

} // namespace

void SaveState(const CAtoms& atoms, IByteSink& sink)
{
    std::string sRow = std::string(c_sHeader) + '\n';
    sink.Write(sRow);
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        sRow.clear();
        AppendRow(sRow, atoms[index], index);
        sink.Write(sRow);
    }
}

void LoadState(std::istream& stream, const std::string& sName, CAtoms& atoms)
{
    CLineReader reader(stream, sName);
    std::string_view sLine;
    if (!reader.ReadLine(sLine))
    {
        throw CHeadlessError(sName + ": the file is empty; its first line must be " + std::string(c_sHeader));
    }
    if (sLine != c_sHeader)
    {
        reader.Fail("the header is " + Quote(sLine) + " instead of '" + std::string(c_sHeader) + "'");
    }
    const std::vector<CAtom> rows = ReadRows(reader);
    if (rows.empty())
    {
        throw CHeadlessError(sName + ": there are no atoms after the header");
    }
    atoms.Allocate(static_cast<std::int32_t>(rows.size()));
    std::copy(rows.begin(), rows.end(), atoms.GetAtoms());
    ComputeVelocityStatistics(atoms);
}

void LoadStateFile(const std::string& sPath, CAtoms& atoms)
{
    std::ifstream stream = OpenInputFile(sPath);
    LoadState(stream, sPath, atoms);
}
