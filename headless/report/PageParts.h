#pragma once

#include <string>
#include <vector>

// Parts of a report's page, as HTML. All texts that they get are plain; the parts escape them.

// A table of columns of the same length, to be unfolded.
struct CPageTable
{
    std::string caption;
    std::vector<std::string> headings; // of the columns
    std::vector<std::vector<std::string>> rows;
};

// A chart with its caption and a table of its values.
struct CPageChart
{
    std::string id;      // of the canvas
    std::string heading; // empty: none
    std::string shows;   // what a screen reader says in its place
    std::string caption;
    bool bLarge{};
    CPageTable table;
};

std::string MakeTable(const CPageTable& table);
std::string MakeChart(const CPageChart& chart);

// A name and a value of a list of them.
struct CPageValue
{
    std::string key; // becomes the attribute data-key
    std::string name;
    std::string value;
    std::string colour; // shown beside the value, "RRGGBB"; empty: none
};

std::string MakeKeyFigures(const std::vector<CPageValue>& values);
std::string MakeValueTable(const std::vector<CPageValue>& values);

// A command of a shell, which the browser breaks before an option where a line is too short.
std::string MakeCommand(const std::string& sCommand);

// A paragraph.
std::string MakeNote(const std::string& sText);
