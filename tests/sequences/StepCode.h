#pragma once

#include "tests/sequences/CStep.h"

#include <string>
#include <vector>

// The sequence as a test that can be pasted into tests/windows/sequences/ScriptedSequenceTests.cpp.
std::string WriteTest(const std::string& sName, const std::vector<CStep>& steps);
