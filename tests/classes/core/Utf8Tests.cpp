#include "classes/core/Utf8.h"

#include <gtest/gtest.h>

namespace
{

TEST(Utf8, SequencesOfEveryLengthSurviveARoundTrip)
{
    const std::wstring sWide = L"a\u007F\u0080\u07FF\u0800\uFFFD\uFFFF\U00010000\U0010FFFF";
    const std::string sNarrow =
        "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
    EXPECT_EQ(WideFromUtf8(sNarrow), sWide);
    EXPECT_EQ(Utf8FromWide(sWide), sNarrow);
}

TEST(Utf8, EmptyTextsAndZeroCharactersAreKept)
{
    EXPECT_EQ(WideFromUtf8(""), L"");
    EXPECT_EQ(Utf8FromWide(L""), "");
    EXPECT_EQ(WideFromUtf8(std::string_view("a\0b", 3)), std::wstring(L"a\0b", 3));
    EXPECT_EQ(Utf8FromWide(std::wstring_view(L"a\0b", 3)), std::string("a\0b", 3));
}

TEST(Utf8, InvalidBytesBecomeReplacementCharacters)
{
    EXPECT_EQ(WideFromUtf8("\x80"), L"\uFFFD");
    EXPECT_EQ(WideFromUtf8("\xFF\xFE"), L"\uFFFD\uFFFD");
    EXPECT_EQ(WideFromUtf8("\xC3"), L"\uFFFD");
    EXPECT_EQ(WideFromUtf8("\xC3("
                           "a"),
              L"\uFFFD(a");
    EXPECT_EQ(WideFromUtf8("\xE2\x82"), L"\uFFFD\uFFFD");
}

TEST(Utf8, OverlongSequencesSurrogatesAndValuesBeyondUnicodeAreRefused)
{
    EXPECT_EQ(WideFromUtf8("\xC0\x80"), L"\uFFFD\uFFFD");
    EXPECT_EQ(WideFromUtf8("\xE0\x9F\xBF"), L"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(WideFromUtf8("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(WideFromUtf8("\xF4\x90\x80\x80"), L"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Utf8, LoneSurrogatesBecomeReplacementCharacters)
{
    const wchar_t cHigh = static_cast<wchar_t>(0xD83D);
    const wchar_t cLow = static_cast<wchar_t>(0xDE00);
    EXPECT_EQ(Utf8FromWide(std::wstring{cHigh}), "\xEF\xBF\xBD");
    EXPECT_EQ(Utf8FromWide(std::wstring{cLow, L'a'}), "\xEF\xBF\xBD"
                                                      "a");
    EXPECT_EQ(Utf8FromWide(std::wstring{cHigh, L'a'}), "\xEF\xBF\xBD"
                                                       "a");
    EXPECT_EQ(Utf8FromWide(std::wstring{cHigh, cHigh, cLow}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

} // namespace
