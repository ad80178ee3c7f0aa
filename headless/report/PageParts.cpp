#include "headless/report/PageParts.h"

#include "headless/report/PageText.h"

namespace
{

std::string MakeRow(const std::vector<std::string>& cells)
{
    std::string sRow = "<tr>";
    for (std::size_t u = 0; u < cells.size(); ++u)
    {
        // The first cell names the row.
        sRow +=
            u == 0 ? "<th scope=\"row\">" + EscapeHtml(cells[u]) + "</th>" : "<td>" + EscapeHtml(cells[u]) + "</td>";
    }
    return sRow + "</tr>\n";
}

// The Content-Security-Policy allows no style in an attribute. The colour of a picture is none.
std::string MakeSwatch(const std::string& sColour)
{
    if (sColour.empty())
    {
        return "";
    }
    return R"(<svg class="swatch" viewBox="0 0 1 1" aria-hidden="true"><rect width="1" height="1" fill="#)" +
           EscapeHtml(sColour) + "\"/></svg>";
}

std::string MakeAttribute(const CPageValue& value)
{
    return " data-key=\"" + EscapeHtml(value.key) + "\"";
}

} // namespace

std::string MakeTable(const CPageTable& table)
{
    std::string sHtml = "<details>\n<summary>Table: " + EscapeHtml(table.caption) + "</summary>\n" +
                        R"(<div class="scroll" tabindex="0" role="region" aria-label="Table: )" +
                        EscapeHtml(table.caption) + "\">\n<table>\n<caption>" + EscapeHtml(table.caption) +
                        "</caption>\n<thead><tr>";
    for (const std::string& sHeading : table.headings)
    {
        sHtml += "<th scope=\"col\">" + EscapeHtml(sHeading) + "</th>";
    }
    sHtml += "</tr></thead>\n<tbody>\n";
    for (const std::vector<std::string>& row : table.rows)
    {
        sHtml += MakeRow(row);
    }
    return sHtml + "</tbody>\n</table>\n</div>\n</details>\n";
}

std::string MakeChart(const CPageChart& chart)
{
    return "<figure>\n" + (chart.heading.empty() ? "" : "<h3>" + EscapeHtml(chart.heading) + "</h3>\n") +
           "<div class=\"chart" + (chart.bLarge ? " large" : "") + "\"><canvas id=\"" + EscapeHtml(chart.id) +
           R"(" role="img" aria-label=")" + EscapeHtml(chart.shows) + "\"></canvas></div>\n<figcaption>" +
           EscapeHtml(chart.caption) + "</figcaption>\n" + MakeTable(chart.table) + "</figure>\n";
}

std::string MakeKeyFigures(const std::vector<CPageValue>& values)
{
    std::string sHtml;
    for (const CPageValue& value : values)
    {
        sHtml += "<div><dt>" + EscapeHtml(value.name) + "</dt><dd" + MakeAttribute(value) + ">" +
                 EscapeHtml(value.value) + "</dd></div>\n";
    }
    return sHtml;
}

std::string MakeValueTable(const std::vector<CPageValue>& values)
{
    std::string sHtml = "<table class=\"pairs\">\n<tbody>\n";
    for (const CPageValue& value : values)
    {
        sHtml += "<tr><th scope=\"row\">" + EscapeHtml(value.name) + "</th><td" + MakeAttribute(value) + ">" +
                 MakeSwatch(value.colour) + EscapeHtml(value.value) + "</td></tr>\n";
    }
    return sHtml + "</tbody>\n</table>\n";
}

std::string MakeCommand(const std::string& sCommand)
{
    constexpr const char* c_sOption = " --";
    std::string sHtml;
    std::size_t uBegin = 0;
    for (std::size_t u = sCommand.find(c_sOption); u != std::string::npos; u = sCommand.find(c_sOption, uBegin))
    {
        sHtml.append("<span>").append(EscapeHtml(sCommand.substr(uBegin, u - uBegin))).append("</span> ");
        uBegin = u + 1;
    }
    return sHtml.append("<span>").append(EscapeHtml(sCommand.substr(uBegin))).append("</span>");
}

std::string MakeNote(const std::string& sText)
{
    return "<p>" + EscapeHtml(sText) + "</p>\n";
}
