#include "classes/core/CrashText.h"

namespace
{
constexpr const char* c_sLineEnd = "\r\n";
constexpr unsigned c_uCodeDigits = 8;
constexpr unsigned c_uYearDigits = 4;
constexpr unsigned c_uPartDigits = 2;
constexpr unsigned c_uMegabyteShift = 20;

constexpr std::uint32_t c_uAccessViolation = 0xC0000005;
constexpr std::uint32_t c_uInPageError = 0xC0000006;

struct CFaultName
{
    std::uint32_t code;
    const char* name;
};

constexpr CFaultName c_FaultNames[] = {
    {0x80000002, "misaligned access"},
    {0x80000003, "breakpoint"},
    {c_uAccessViolation, "access violation"},
    {c_uInPageError, "page that could not be read"},
    {0xC000001D, "illegal instruction"},
    {0xC0000025, "fault that cannot be continued"},
    {0xC000008C, "array bounds exceeded"},
    {0xC000008E, "floating-point division by zero"},
    {0xC0000090, "invalid floating-point operation"},
    {0xC0000094, "integer division by zero"},
    {0xC0000095, "integer overflow"},
    {0xC0000096, "privileged instruction"},
    {0xC00000FD, "stack overflow"},
    {0xC0000374, "damaged heap"},
    {0xC0000409, "damaged stack"},
};

// The first detail of an access violation is the attempted operation.
constexpr std::uint64_t c_uReading = 0;
constexpr std::uint64_t c_uWriting = 1;
constexpr std::uint64_t c_uExecuting = 8;

const char* NameAccess(std::uint64_t uAccess)
{
    switch (uAccess)
    {
    case c_uReading:
        return " reading from address ";
    case c_uWriting:
        return " writing to address ";
    case c_uExecuting:
        return " executing address ";
    default:
        return " at address ";
    }
}

void AddLine(CFixedText& text, const char* sTitle, const char* sValue)
{
    if (sValue != nullptr)
    {
        text.Add(sTitle).Add(sValue).Add(c_sLineEnd);
    }
}

void AddTime(CFixedText& text, const CCrashTime& time)
{
    text.AddNumber(time.year, c_uYearDigits).Add("-").AddNumber(time.month, c_uPartDigits);
    text.Add("-").AddNumber(time.day, c_uPartDigits).Add(" ").AddNumber(time.hour, c_uPartDigits);
    text.Add(":").AddNumber(time.minute, c_uPartDigits).Add(":").AddNumber(time.second, c_uPartDigits).Add(" UTC");
}

void AddMemory(CFixedText& text, const CCrashFacts& facts)
{
    text.AddNumber(facts.memoryOwn >> c_uMegabyteShift).Add(" MB taken by the program, ");
    text.AddNumber(facts.memoryFree >> c_uMegabyteShift).Add(" MB of ");
    text.AddNumber(facts.memoryTotal >> c_uMegabyteShift).Add(" MB free");
}
} // namespace

void AddFault(CFixedText& text, const CFault& fault) noexcept
{
    const char* sName = "fault";
    for (const CFaultName& row : c_FaultNames)
    {
        if (row.code == fault.code)
        {
            sName = row.name;
        }
    }
    text.Add(sName).Add(" (").AddHex(fault.code, c_uCodeDigits).Add(")");
    const bool bOfMemory = fault.code == c_uAccessViolation || fault.code == c_uInPageError;
    if (bOfMemory && fault.detailCount >= 2)
    {
        text.Add(NameAccess(fault.details[0])).AddHex(fault.details[1]);
    }
}

void AddCrashPlace(CFixedText& text, const CCrashPlace& place) noexcept
{
    if (place.module[0] != '\0')
    {
        text.Add(place.module).Add("+").AddHex(place.offset);
    }
    else
    {
        text.AddHex(place.address);
    }
}

void AddCrashReport(CFixedText& text, const CCrashFacts& facts) noexcept
{
    text.Add(facts.program).Add(" ").Add(facts.version).Add(" ended unexpectedly.").Add(c_sLineEnd).Add(c_sLineEnd);
    text.Add("Time:      ");
    AddTime(text, facts.time);
    text.Add(c_sLineEnd);
    AddLine(text, "Build:     ", facts.build);
    AddLine(text, "Error:     ", facts.error);
    text.Add("Place:     ");
    AddCrashPlace(text, facts.place);
    text.Add(c_sLineEnd);
    text.Add("Thread:    ")
        .AddNumber(facts.thread)
        .Add(facts.mainThread ? " (the main thread)" : " (not the main one)");
    text.Add(c_sLineEnd);
    AddLine(text, "Activity:  ", facts.activity);
    AddLine(text, "System:    ", facts.system);
    AddLine(text, "Processor: ", facts.processor);
    text.Add("Memory:    ");
    AddMemory(text, facts);
    text.Add(c_sLineEnd);
}
