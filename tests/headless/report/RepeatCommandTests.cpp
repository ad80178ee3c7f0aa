#include "headless/options/COptions.h"
#include "headless/options/RunSettings.h"
#include "headless/report/RepeatCommand.h"
#include "headless/report/RunResults.h"

#include <gtest/gtest.h>

namespace
{

std::string Posix(const std::string& sText)
{
    return QuoteForShell(sText, EnumShell::Posix);
}

std::string Windows(const std::string& sText)
{
    return QuoteForShell(sText, EnumShell::Windows);
}

std::string CommandOf(const std::vector<std::string>& arguments, const std::string& sStart, EnumShell eShell)
{
    CRunResults results;
    results.seed = 42;
    results.iterations = 70;
    results.start = sStart;
    return MakeRepeatCommand(ResolveSettings(ParseOptions(arguments).options), results, eShell);
}

constexpr const char* c_sColoursOfPosix = " --colour-mode speed --colours ff0000,808080,00ff00 --factors 0.75,,1.25 "
                                          "--background 000000";

} // namespace

TEST(RepeatCommand, APosixShellGetsEveryTextAsItIs)
{
    EXPECT_EQ(Posix("a/b-1.csv"), "a/b-1.csv");
    EXPECT_EQ(Posix("0.75,,1.25"), "0.75,,1.25");
    EXPECT_EQ(Posix(""), "''");
    EXPECT_EQ(Posix("two words"), "'two words'");
    EXPECT_EQ(Posix("$HOME `x` \"y\" \\ !"), "'$HOME `x` \"y\" \\ !'");
    EXPECT_EQ(Posix("it's"), "'it'\\''s'");
    EXPECT_EQ(Posix("ü"), "'ü'");
    EXPECT_EQ(Posix("a\n'\\\xFF"), "$'a\\x0A\\'\\\\\\xFF'");
}

TEST(RepeatCommand, BothShellsOfWindowsGetEveryTextAsItIsWhereTheyCan)
{
    EXPECT_EQ(Windows("a/b-1.csv"), "a/b-1.csv");
    EXPECT_EQ(Windows("100,200"), "\"100,200\"");
    EXPECT_EQ(Windows("C:\\two words"), "\"C:\\two words\"");
    EXPECT_EQ(Windows("it's"), "\"it's\"");
    EXPECT_EQ(Windows("$a's"), "'$a''s'");
    EXPECT_EQ(Windows("50%"), "'50%'");
    EXPECT_EQ(Windows("\u201Ca\u201D \u2019"), "'\u201Ca\u201D \u2019\u2019'");
}

TEST(RepeatCommand, NamesEverySetting)
{
    EXPECT_EQ(CommandOf({"--width", "300", "--max-radius", "9"}, "random", EnumShell::Posix),
              std::string("kinetarium-headless --seed 42 --iterations 70 --width 300 --height 512 --atoms 256 "
                          "--min-radius 3 --max-radius 9") +
                  c_sColoursOfPosix);
    EXPECT_EQ(CommandOf({"--start-at", "100,200"}, "100,200", EnumShell::Windows),
              "kinetarium-headless --seed 42 --iterations 70 --width 512 --height 512 --atoms 256 --min-radius 3 "
              "--max-radius 5 --start-at \"100,200\" --colour-mode speed --colours \"ff0000,808080,00ff00\" "
              "--factors \"0.75,,1.25\" --background 000000");
}

TEST(RepeatCommand, TakesTheAtomsFromTheFileThatBroughtThem)
{
    const std::string sBegin = "kinetarium-headless --seed 42 --iterations 70 --width 512 --height 512 --load-state";
    EXPECT_EQ(CommandOf({}, "a b.csv", EnumShell::Posix), sBegin + " 'a b.csv'" + c_sColoursOfPosix);
    EXPECT_EQ(CommandOf({}, "1,2.csv", EnumShell::Posix), sBegin + " 1,2.csv" + c_sColoursOfPosix);
    EXPECT_EQ(CommandOf({}, "standard input", EnumShell::Posix), sBegin + " -" + c_sColoursOfPosix);
    EXPECT_EQ(CommandOf({}, "-a.csv", EnumShell::Posix), sBegin + "=-a.csv" + c_sColoursOfPosix);
}
