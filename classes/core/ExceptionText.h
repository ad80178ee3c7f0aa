#pragma once

#include <string>

// Names the exception that is being handled: its type and, if it derives from std::exception, what() in quotation
// marks. Outside of a handler: "no exception". To be called inside a catch handler or a terminate handler.
std::wstring DescribeCurrentException();
