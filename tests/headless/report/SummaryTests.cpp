#include "headless/report/RunResults.h"
#include "headless/report/Summary.h"
#include "settings/CSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

using testing::HasSubstr;

namespace
{

CRunResults MakeResults()
{
    CRunResults results;
    results.seed = std::numeric_limits<std::uint64_t>::max();
    results.start = "random";
    results.iterations = 200;
    results.collisions = 30;
    results.atoms = 5;
    results.smallestRadius = 3;
    results.largestRadius = 4;
    results.velocities = {0.25F, 2.5F, 6.0F, 1.25F};
    results.startSpeedSum = 6;
    results.endSpeedSum = 6;
    results.overlaps = COverlapStatistics{7, 0.5, true};
    results.atomsOutside = 1;
    results.hash = 0x1F;
    return results;
}

CSettings MakeSettings()
{
    CSettings settings;
    settings.world = {300, 200};
    settings.colours = {MakeColour(1, 2, 3), MakeColour(0, 0, 0), MakeColour(255, 255, 255)};
    settings.factors[0] = CFactor(L"0.5");
    return settings;
}

std::string Format(const CRunResults& results, EnumSummaryForm eForm)
{
    return FormatSummary(MakeSummaryValues(MakeSettings(), results, "run \"a\", b"), eForm);
}

// The text of a key's value in the one line of JSON.
std::string JsonValue(const CRunResults& results, const std::string& sKey)
{
    const std::string sJson = Format(results, EnumSummaryForm::Json);
    const std::size_t uBegin = sJson.find("\"" + sKey + "\":");
    EXPECT_NE(uBegin, std::string::npos) << sKey;
    const std::size_t uValue = uBegin + sKey.size() + 3;
    return sJson.substr(uValue, sJson.find_first_of(",}", uValue) - uValue);
}

// The cell of a key. No cell before it may hold a comma but that of the command, which is the second.
std::string CsvValue(const CRunResults& results, const std::string& sKey)
{
    std::string sCsv = Format(results, EnumSummaryForm::Csv);
    const std::string sCommand = "\"run \"\"a\"\", b\"";
    EXPECT_THAT(sCsv, HasSubstr(sCommand));
    sCsv.replace(sCsv.find(sCommand), sCommand.size(), "command");
    std::string sHeader = "," + sCsv.substr(0, sCsv.find('\n')) + ",";
    std::string sLine = sCsv.substr(sCsv.find('\n') + 1);
    EXPECT_EQ(sLine.back(), '\n');
    sLine.back() = ',';
    const std::size_t uBegin = sHeader.find("," + sKey + ",");
    EXPECT_NE(uBegin, std::string::npos) << sKey;
    for (std::size_t u = 0; u < uBegin; ++u)
    {
        if (sHeader[u + 1] == ',')
        {
            sLine.erase(0, sLine.find(',') + 1);
        }
    }
    return sLine.substr(0, sLine.find(','));
}

} // namespace

TEST(Summary, TextHasALineForEachNameAndNeitherVersionNorCommand)
{
    const std::string sText = Format(MakeResults(), EnumSummaryForm::Text);
    EXPECT_THAT(sText, testing::StartsWith("seed: 18446744073709551615\nwidth: 300\nheight: 200\natoms: 5\n"));
    EXPECT_THAT(sText, HasSubstr("\nfactor 1: 0.5\ncolour 2: 000000\nfactor 2: none\n"));
    EXPECT_THAT(sText, testing::EndsWith("\noverlapping pairs: 7\nlargest overlap: 0.500000\natoms outside: 1\n"
                                         "state hash: 000000000000001f\n"));
}

TEST(Summary, SeedAndHashAreTextsInJsonAndOtherNumbersAreNumbers)
{
    const CRunResults results = MakeResults();
    EXPECT_EQ(JsonValue(results, "seed"), "\"18446744073709551615\"");
    EXPECT_EQ(JsonValue(results, "state_hash"), "\"000000000000001f\"");
    EXPECT_EQ(JsonValue(results, "width"), "300");
    EXPECT_EQ(JsonValue(results, "collisions_per_iteration_percent"), "3.0");
    EXPECT_EQ(JsonValue(results, "average_speed"), "1.25");
    EXPECT_EQ(JsonValue(results, "colour_1"), "\"010203\"");
    EXPECT_EQ(JsonValue(results, "version"), "\"" KINETARIUM_VERSION "\"");
    EXPECT_THAT(Format(results, EnumSummaryForm::Json), HasSubstr(R"("command":"run \"a\", b",)"));
}

TEST(Summary, CsvHasTheSameKeysAndValuesOnTwoLines)
{
    const CRunResults results = MakeResults();
    EXPECT_EQ(CsvValue(results, "seed"), "18446744073709551615");
    EXPECT_EQ(CsvValue(results, "state_hash"), "000000000000001f");
    EXPECT_EQ(CsvValue(results, "collisions_per_iteration_percent"), "3.00");
    EXPECT_EQ(CsvValue(results, "factor_2"), "");
    EXPECT_EQ(CsvValue(results, "largest_overlap"), "0.500000");
}

TEST(Summary, ValuesThatAreMissingAreNull)
{
    CRunResults results = MakeResults();
    results.iterations = 0;
    results.overlaps.reset();
    for (const std::string sKey :
         {"factor_2", "median_time_ms", "percentile_95_time_ms", "collisions_per_iteration_percent",
          "overlapping_pairs", "largest_overlap", "overlaps_at_least"})
    {
        EXPECT_EQ(JsonValue(results, sKey), "null") << sKey;
        EXPECT_EQ(CsvValue(results, sKey), "") << sKey;
    }
}

TEST(Summary, AFlagTellsThatTheOverlapsAreLowerBounds)
{
    CRunResults results = MakeResults();
    EXPECT_EQ(JsonValue(results, "overlaps_at_least"), "false");
    results.overlaps->bComplete = false;
    EXPECT_EQ(JsonValue(results, "overlaps_at_least"), "true");
    EXPECT_EQ(JsonValue(results, "overlapping_pairs"), "7");
    EXPECT_EQ(CsvValue(results, "largest_overlap"), "0.500000");
    EXPECT_THAT(Format(results, EnumSummaryForm::Text),
                HasSubstr("overlapping pairs: at least 7\nlargest overlap: at least 0.500000\n"));
}

// JSON has no other numbers.
TEST(Summary, NumbersThatAreNotFiniteAreMissingAsData)
{
    CRunResults results = MakeResults();
    results.velocities.max = std::numeric_limits<float>::infinity();
    results.velocities.avg = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(JsonValue(results, "maximum_speed"), "null");
    EXPECT_EQ(JsonValue(results, "average_speed"), "null");
    EXPECT_EQ(CsvValue(results, "maximum_speed"), "");
    EXPECT_THAT(Format(results, EnumSummaryForm::Text), HasSubstr("maximum speed: inf\n"));
}

TEST(Summary, NamesOfFilesAreEscapedAsEachFormNeedsIt)
{
    CRunResults results = MakeResults();
    results.start = "a\x01\"\xFF.csv";
    EXPECT_THAT(Format(results, EnumSummaryForm::Text), HasSubstr("start: a\\x01\"\\xFF.csv\n"));
    EXPECT_THAT(Format(results, EnumSummaryForm::Json), HasSubstr("\"start\":\"a\\u0001\\\"\xEF\xBF\xBD.csv\""));
    EXPECT_THAT(Format(results, EnumSummaryForm::Csv), HasSubstr(",\"a\x01\"\"\xEF\xBF\xBD.csv\","));
    results.start = "1,2.csv";
    EXPECT_THAT(Format(results, EnumSummaryForm::Csv), HasSubstr(",\"1,2.csv\","));
}
