#include "headless/report/Summary.h"

#include <nlohmann/json.hpp>

namespace
{

std::string FormatAsText(const std::vector<CSummaryValue>& values)
{
    std::string sText;
    for (const CSummaryValue& value : values)
    {
        if (!value.name.empty())
        {
            sText += value.name + ": " + value.shown + '\n';
        }
    }
    return sText;
}

// JSON has no number that is not finite: "inf", "nan".
bool IsMissing(const CSummaryValue& value)
{
    const bool bNotFinite = value.data.find_first_of("in") != std::string::npos;
    return value.eKind == EnumSummaryKind::Missing || (value.eKind == EnumSummaryKind::Number && bNotFinite);
}

// RFC 4180 puts a cell with a comma, a quotation mark or a line end into quotation marks.
std::string QuoteCell(const std::string& sText)
{
    if (sText.find_first_of(",\"\r\n") == std::string::npos)
    {
        return sText;
    }
    std::string sCell(1, '"');
    for (const char letter : sText)
    {
        sCell.append(letter == '"' ? 2 : 1, letter);
    }
    return sCell + '"';
}

std::string FormatAsCsv(const std::vector<CSummaryValue>& values)
{
    std::string sHeader;
    std::string sLine;
    for (const CSummaryValue& value : values)
    {
        const char* const sComma = sHeader.empty() ? "" : ",";
        sHeader.append(sComma).append(value.sKey);
        sLine.append(sComma).append(IsMissing(value) ? "" : QuoteCell(value.data));
    }
    return sHeader + '\n' + sLine + '\n';
}

nlohmann::ordered_json JsonOf(const CSummaryValue& value)
{
    if (IsMissing(value))
    {
        return nullptr;
    }
    return value.eKind == EnumSummaryKind::Text ? nlohmann::ordered_json(value.data)
                                                : nlohmann::ordered_json::parse(value.data);
}

// On one line, so that the summaries of many runs make a file of JSON lines.
std::string FormatAsJson(const std::vector<CSummaryValue>& values)
{
    nlohmann::ordered_json object;
    for (const CSummaryValue& value : values)
    {
        object[value.sKey] = JsonOf(value);
    }
    return object.dump() + '\n';
}

} // namespace

std::string FormatSummary(const std::vector<CSummaryValue>& values, EnumSummaryForm eForm)
{
    switch (eForm)
    {
    case EnumSummaryForm::Csv:
        return FormatAsCsv(values);
    case EnumSummaryForm::Json:
        return FormatAsJson(values);
    case EnumSummaryForm::Text:
        break;
    }
    return FormatAsText(values);
}
