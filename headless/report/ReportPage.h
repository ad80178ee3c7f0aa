#pragma once

#include <string>

struct CReport;

// The report as one page of HTML, which needs no other file and no network. A run that was interrupted and continued
// has the same page as one in one piece: the times, which differ from run to run, are not in it.
std::string MakeReportPage(const CReport& report);
