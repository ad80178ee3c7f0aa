#include "headless/console/NumberText.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

TEST(NumberText, LettersOfEveryLanguageStayAsTheyAre)
{
    const std::string sText = "a \\x1B ~ \xC3\xA4 \xE2\x98\x83 \xF0\x9F\x98\x80 \xEF\xBF\xBD";
    EXPECT_EQ(EscapeUnprintable(sText), sText);
}

TEST(NumberText, UnprintableBytesAreEscaped)
{
    EXPECT_EQ(EscapeUnprintable("\x1B[2J\r\n\t\x7F"), "\\x1B[2J\\x0D\\x0A\\x09\\x7F");
    EXPECT_EQ(EscapeUnprintable(std::string_view("\0", 1)), "\\x00");
    EXPECT_EQ(EscapeUnprintable("\xFF \xC3 \xC0\x80"), "\\xFF \\xC3 \\xC0\\x80");
    EXPECT_EQ(EscapeUnprintable("\xC2\x9B"), "\\xC2\\x9B");          // a control character beyond ASCII
    EXPECT_EQ(EscapeUnprintable("\xE2\x80\xAE"), "\\xE2\\x80\\xAE"); // turns the letters around
}

TEST(NumberText, AQuotedTextIsCutBetweenLetters)
{
    EXPECT_EQ(Quote("a\nb"), "'a\\x0Ab'");
    EXPECT_EQ(Quote(std::string(40, 'a')), "'" + std::string(40, 'a') + "'");
    EXPECT_EQ(Quote(std::string(39, 'a') + "\xC3\xA4"), "'" + std::string(39, 'a') + "...'");
}

TEST(NumberText, MessagesOfTheProgramHoldNoUnprintableByte)
{
    const CProgramResult result = RunProgram({"--settings", "none\x1B[2J\n.ini"});

    EXPECT_EQ(result.err, "error: none\\x1B[2J\\x0A.ini: there is no such file\n");
}

TEST(NumberText, ANumberIsTheShortestTextThatReadsBackToIt)
{
    std::string sText;
    for (const double value : {0.1, 1.0 / 3.0, -2.5e-308, 1e21, -1.7976931348623157e308})
    {
        AppendDouble(sText, value);
        sText += ' ';
    }
    AppendFloat(sText, 0.1F);

    EXPECT_EQ(sText, "0.1 0.3333333333333333 -2.5e-308 1e+21 -1.7976931348623157e+308 0.1");
}
