#pragma once

#include "headless/options/EnumSummaryForm.h"
#include "headless/report/SummaryValues.h"

#include <string>
#include <vector>

// The summary in one of its forms. Text: one "name: value" a line, with one value each; scripts pick values by name.
// JSON: one object on one line. CSV: a line of keys and a line of values. What is missing is null in JSON and empty in
// CSV; a number that is not finite counts as missing there.
std::string FormatSummary(const std::vector<CSummaryValue>& values, EnumSummaryForm eForm);
