#pragma once

#include <string>

// Names the exception that is being handled: its type and, if it derives from std::exception, what() in quotation
// marks. Call it inside a catch handler or a terminate handler; elsewhere it gives "no exception".
std::wstring DescribeCurrentException();
