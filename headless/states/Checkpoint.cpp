#include "headless/states/Checkpoint.h"

#include "classes/core/Utf8.h"
#include "headless/console/HeadlessError.h"
#include "headless/files/CByteReader.h"
#include "headless/files/CByteWriter.h"
#include "headless/files/InputFile.h"
#include "settings/FactorRules.h"
#include "settings/SettingRows.h"
#include "simulation/CAtoms.h"
#include "simulation/SpeedStatistics.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <vector>

namespace
{

constexpr std::string_view c_sMagic("\x89KINCP\r\n", 8);
constexpr std::uint32_t c_uVersion = 2;

constexpr std::array<float CAtom::*, 5> c_FloatFields = {&CAtom::x, &CAtom::y, &CAtom::speed, &CAtom::vx, &CAtom::vy};
constexpr std::size_t c_uAtomBytes = c_FloatFields.size() * sizeof(float) + 1;

// Years of the smallest world, many times.
constexpr std::uint64_t c_uMostIterations = std::uint64_t{1} << 60U;

// Far more than the texts of any run: a file name, three factors, the progress of what observes it.
constexpr std::size_t c_uMaxTextBytes = 1'048'576;
constexpr std::size_t c_uMaxObservers = 16;
constexpr std::size_t c_uMaxHeadBytes =
    (4 + 2 * c_uMaxObservers) * c_uMaxTextBytes + 8 * (CRandom::c_uStateWords + 64 + c_uMaxObservers);
constexpr std::size_t c_uMaxFileBytes = c_uMaxHeadBytes + c_iMaxTotalAtoms * c_uAtomBytes;

// The settings that are numbers, in the order of the file.
constexpr std::array<EnumSetting, 10> c_Numbers = {
    EnumSetting::WorldWidth, EnumSetting::WorldHeight, EnumSetting::TotalAtoms,       EnumSetting::MinRadius,
    EnumSetting::MaxRadius,  EnumSetting::ColourMode,  EnumSetting::BackgroundColour, EnumSetting::Colour1,
    EnumSetting::Colour2,    EnumSetting::Colour3};

std::string GetText(const CFactor& factor)
{
    return Utf8FromWide(factor.GetText().Get());
}

// The length of the whole file.
std::uint64_t GetFileBytes(const CCheckpoint& checkpoint, const CAtoms& atoms)
{
    constexpr std::size_t c_uText = sizeof(std::uint32_t);
    constexpr std::size_t c_uWord = sizeof(std::uint64_t);
    std::uint64_t uBytes = c_sMagic.size() + sizeof(std::uint32_t) + c_uWord;
    uBytes += c_Numbers.size() * sizeof(std::uint32_t);
    for (const CFactor& factor : checkpoint.settings.factors)
    {
        uBytes += c_uText + GetText(factor).size();
    }
    for (const auto& [sOption, progress] : checkpoint.progress)
    {
        uBytes += c_uText + sOption.size() + c_uWord + c_uText + progress.bytes.size();
    }
    uBytes += c_uText + checkpoint.start.size() + 4 * c_uWord + 2 * sizeof(std::uint32_t);
    uBytes += CRandom::c_uStateWords * c_uWord;
    return uBytes + sizeof(std::uint32_t) + static_cast<std::uint64_t>(atoms.GetCount()) * c_uAtomBytes + c_uWord;
}

void WriteSettings(CByteWriter& writer, const CSettings& settings)
{
    for (const EnumSetting eSetting : c_Numbers)
    {
        writer.Write32(static_cast<std::uint32_t>(GetNumber(GetSettingRow(eSetting), settings)));
    }
    for (const CFactor& factor : settings.factors)
    {
        writer.WriteText(GetText(factor));
    }
}

void WriteRun(CByteWriter& writer, const CCheckpoint& checkpoint)
{
    writer.WriteText(checkpoint.start);
    for (const std::uint64_t uWord : {checkpoint.seed, checkpoint.iterations, checkpoint.collisions,
                                      std::bit_cast<std::uint64_t>(checkpoint.startSpeedSum)})
    {
        writer.Write64(uWord);
    }
    writer.Write32(checkpoint.lastCollisions);
    writer.Write32(static_cast<std::uint32_t>(checkpoint.progress.size()));
    for (const auto& [sOption, progress] : checkpoint.progress)
    {
        writer.WriteText(sOption);
        writer.Write64(progress.next);
        writer.WriteText(progress.bytes);
    }
    for (const std::uint64_t uWord : checkpoint.random)
    {
        writer.Write64(uWord);
    }
}

bool IsAllowed(const CAtom& atom)
{
    return atom.radius > 0 && std::all_of(c_FloatFields.begin(), c_FloatFields.end(),
                                          [&atom](float CAtom::*pField) { return std::isfinite(atom.*pField); });
}

void WriteAtoms(CByteWriter& writer, const CAtoms& atoms)
{
    writer.Write32(static_cast<std::uint32_t>(atoms.GetCount()));
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const CAtom& atom = atoms[index];
        if (!IsAllowed(atom))
        {
            throw CHeadlessError("the checkpoint cannot be written: a number of atom " + std::to_string(index + 1) +
                                 " is not finite");
        }
        for (float CAtom::*const pField : c_FloatFields)
        {
            writer.Write32(std::bit_cast<std::uint32_t>(atom.*pField));
        }
        writer.Write8(atom.radius);
    }
}

[[noreturn]] void FailAsDamaged(const std::string& sName, const std::string& sWhat)
{
    throw CHeadlessError(sName + ": the checkpoint is damaged: " + sWhat);
}

// The whole file; of one that is too long for a checkpoint, the beginning.
std::string ReadAll(std::istream& stream, const std::string& sName)
{
    constexpr std::size_t c_uPieceBytes = std::size_t{64} * 1024;
    std::string sBytes;
    while (stream && sBytes.size() <= c_uMaxFileBytes)
    {
        const std::size_t uOldSize = sBytes.size();
        sBytes.resize(uOldSize + c_uPieceBytes);
        stream.read(sBytes.data() + uOldSize, static_cast<std::streamsize>(c_uPieceBytes));
        sBytes.resize(uOldSize + static_cast<std::size_t>(stream.gcount()));
    }
    if (stream.bad())
    {
        throw CHeadlessError(sName + ": cannot be read");
    }
    return sBytes;
}

// The bytes between the head of the file and its checksum.
std::string_view CheckFrame(const std::string& sName, const std::string& sBytes)
{
    CByteReader reader(sBytes);
    if (reader.ReadBytes(c_sMagic.size()) != c_sMagic)
    {
        throw CHeadlessError(sName + ": this is no checkpoint of kinetarium-headless");
    }
    const std::uint32_t uVersion = reader.Read32();
    if (reader.IsGood() && uVersion != c_uVersion)
    {
        throw CHeadlessError(sName + ": this checkpoint has version " + std::to_string(uVersion) +
                             " of the format; this program reads version " + std::to_string(c_uVersion));
    }
    const std::uint64_t uLength = reader.Read64();
    if (!reader.IsGood() || uLength != sBytes.size())
    {
        FailAsDamaged(sName, "it has " + std::to_string(sBytes.size()) + " bytes" +
                                 (reader.IsGood() ? " instead of " + std::to_string(uLength) : ""));
    }
    const std::string_view sContent = reader.ReadBytes(reader.GetLeft() - std::min(reader.GetLeft(), sizeof uLength));
    const std::uint64_t uHash = reader.Read64();
    const std::string_view sHashed = std::string_view(sBytes).substr(0, sBytes.size() - sizeof uHash);
    if (!reader.IsGood() || uHash != ComputeFnvHash(sHashed))
    {
        FailAsDamaged(sName, "its checksum is wrong");
    }
    return sContent;
}

// False for a number outside its range.
bool ReadSettings(CByteReader& reader, CSettings& settings)
{
    for (const EnumSetting eSetting : c_Numbers)
    {
        const CSettingRow& row = GetSettingRow(eSetting);
        const std::uint32_t uNumber = reader.Read32();
        if (uNumber < row.range.low || uNumber > row.range.high)
        {
            return false;
        }
        SetNumber(row, settings, static_cast<std::int32_t>(uNumber));
    }
    for (CFactor& factor : settings.factors)
    {
        factor = CFactor(CWString(WideFromUtf8(reader.ReadText(c_uMaxTextBytes))));
    }
    CFactorValues values{};
    return settings.minRadius <= settings.maxRadius && CheckFactors(settings.factors, settings.eMode).empty() &&
           InterpretFactors(settings.eMode, settings.factors, settings.atoms, values);
}

bool ReadProgress(CByteReader& reader, CCheckpoint& checkpoint)
{
    const std::uint32_t uCount = reader.Read32();
    for (std::uint32_t u = 0; u < uCount && uCount <= c_uMaxObservers; ++u)
    {
        const std::string sOption(reader.ReadText(c_uMaxTextBytes));
        CObserverProgress& progress = checkpoint.progress[sOption];
        progress.next = reader.Read64();
        progress.bytes = reader.ReadText(c_uMaxTextBytes);
        if (progress.next > checkpoint.iterations + 1)
        {
            return false;
        }
    }
    return checkpoint.progress.size() == uCount;
}

bool ReadRun(CByteReader& reader, CCheckpoint& checkpoint)
{
    checkpoint.start = reader.ReadText(c_uMaxTextBytes);
    checkpoint.seed = reader.Read64();
    checkpoint.iterations = reader.Read64();
    checkpoint.collisions = reader.Read64();
    checkpoint.startSpeedSum = std::bit_cast<double>(reader.Read64());
    checkpoint.lastCollisions = reader.Read32();
    const bool bProgress = ReadProgress(reader, checkpoint);
    for (std::uint64_t& uWord : checkpoint.random)
    {
        uWord = reader.Read64();
    }
    CRandom random(0);
    return checkpoint.iterations <= c_uMostIterations && std::isfinite(checkpoint.startSpeedSum) && bProgress &&
           random.SetState(checkpoint.seed, checkpoint.random);
}

bool ReadAtoms(CByteReader& reader, std::vector<CAtom>& atoms)
{
    const std::uint32_t uCount = reader.Read32();
    if (uCount < c_iMinTotalAtoms || uCount > c_iMaxTotalAtoms || reader.GetLeft() != uCount * c_uAtomBytes)
    {
        return false;
    }
    atoms.resize(uCount);
    for (CAtom& atom : atoms)
    {
        for (float CAtom::*const pField : c_FloatFields)
        {
            atom.*pField = std::bit_cast<float>(reader.Read32());
        }
        atom.radius = reader.Read8();
    }
    return std::all_of(atoms.begin(), atoms.end(), IsAllowed);
}

} // namespace

void WriteCheckpoint(const CCheckpoint& checkpoint, const CAtoms& atoms, IByteSink& sink)
{
    CByteWriter writer(sink);
    writer.WriteBytes(c_sMagic);
    writer.Write32(c_uVersion);
    writer.Write64(GetFileBytes(checkpoint, atoms));
    WriteSettings(writer, checkpoint.settings);
    WriteRun(writer, checkpoint);
    WriteAtoms(writer, atoms);
    writer.WriteHash();
}

CCheckpoint ReadCheckpoint(std::istream& stream, const std::string& sName, CAtoms& atoms)
{
    const std::string sBytes = ReadAll(stream, sName);
    CByteReader reader(CheckFrame(sName, sBytes));
    CCheckpoint checkpoint;
    std::vector<CAtom> rows;
    if (!ReadSettings(reader, checkpoint.settings) || !ReadRun(reader, checkpoint) || !ReadAtoms(reader, rows) ||
        !reader.IsGood())
    {
        FailAsDamaged(sName, "it holds a value that no run has");
    }
    atoms.Allocate(static_cast<std::int32_t>(rows.size()));
    std::copy(rows.begin(), rows.end(), atoms.GetAtoms());
    ComputeVelocityStatistics(atoms);
    return checkpoint;
}

CCheckpoint ReadCheckpointFile(const std::string& sPath, CAtoms& atoms)
{
    std::ifstream stream = OpenInputFile(sPath);
    return ReadCheckpoint(stream, sPath, atoms);
}
