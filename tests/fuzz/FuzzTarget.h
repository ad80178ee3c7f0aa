#pragma once

#include <cstddef>
#include <cstdint>

// Runs one input of a fuzzer. The program must read any bytes without a crash, a hang or undefined behaviour, and its
// results must be right. A finding ends the process. Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount);

// Prints the text and ends the process unless the condition is true.
void Require(bool bCondition, const char* sWhat);
