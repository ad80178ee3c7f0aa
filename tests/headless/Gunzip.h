#pragma once

#include <string>
#include <string_view>

// The text of a gzip file, all its members in a row. Throws std::runtime_error if a byte of it is damaged or missing.
std::string Gunzip(std::string_view sBytes);
