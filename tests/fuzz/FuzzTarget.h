#pragma once

#include <cstddef>
#include <cstdint>

// One input of a fuzzer. Whatever the bytes are, the program must read them without a crash, a hang or undefined
// behaviour; and what it accepts must hold. Ends the process where that is not so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount);

// Ends the process with a text unless the condition holds.
void Require(bool bCondition, const char* sWhat);
