#pragma once

#include <string_view>

// The files that a report is made of, which are compiled into the program.
struct CPageFile
{
    std::string_view bytes;
    std::string_view sha256; // 64 hexadecimal digits
};

CPageFile GetPageTemplate(); // with {{NAME}} where a text belongs
CPageFile GetPageStyle();
CPageFile GetPageScript();
CPageFile GetChartLibrary();
