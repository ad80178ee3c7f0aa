#include "headless/report/PageParts.h"
#include "headless/report/PageText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

using testing::HasSubstr;
using testing::Not;

TEST(PageText, NothingOfATextBecomesHtml)
{
    EXPECT_EQ(EscapeHtml("a <b> & \"c\" 'd'"), "a &lt;b&gt; &amp; &quot;c&quot; &#39;d&#39;");
    EXPECT_EQ(EscapeHtml("ü\x01\xFF"), "ü\\x01\\xFF");
    EXPECT_EQ(EscapeHtml(""), "");
}

// The test vectors of RFC 4648.
TEST(PageText, Base64IsThatOfTheStandard)
{
    EXPECT_EQ(EncodeBase64(""), "");
    EXPECT_EQ(EncodeBase64("f"), "Zg==");
    EXPECT_EQ(EncodeBase64("fo"), "Zm8=");
    EXPECT_EQ(EncodeBase64("foo"), "Zm9v");
    EXPECT_EQ(EncodeBase64("foobar"), "Zm9vYmFy");
    EXPECT_EQ(EncodeBase64("\xFF\xFE\xFD"), "//79");
}

TEST(PageText, ATemplateIsFilledOnce)
{
    EXPECT_EQ(FillTemplate("a {{X}}{{Y}} b {{X}}", {{"X", "{{Y}}"}, {"Y", "2"}}), "a {{Y}}2 b {{Y}}");
    EXPECT_EQ(FillTemplate("nothing", {}), "nothing");
    EXPECT_THROW(FillTemplate("{{X}}", {}), std::out_of_range);
}

TEST(PageParts, EveryTextIsEscaped)
{
    const std::string sEvil = "<script>\"'&";
    CPageChart chart;
    chart.id = chart.heading = chart.shows = chart.caption = sEvil;
    chart.table = {sEvil, {sEvil}, {{sEvil, sEvil}}};
    const std::string sHtml = MakeChart(chart) + MakeKeyFigures({{sEvil, sEvil, sEvil, ""}}) +
                              MakeValueTable({{sEvil, sEvil, sEvil, sEvil}}) + MakeNote(sEvil) + MakeCommand(sEvil);
    EXPECT_THAT(sHtml, Not(HasSubstr("<script")));
    EXPECT_THAT(sHtml, Not(HasSubstr("'")));
    EXPECT_THAT(sHtml, HasSubstr("&lt;script&gt;"));
}

TEST(PageParts, ACommandKeepsItsText)
{
    EXPECT_EQ(MakeCommand("run --a 1 --b '<'"), "<span>run</span> <span>--a 1</span> <span>--b &#39;&lt;&#39;</span>");
    EXPECT_EQ(MakeCommand("run"), "<span>run</span>");
}
