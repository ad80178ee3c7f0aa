#pragma once

// The environment variable that sends the debug output of every program of this project to the standard error stream
// too. Its value means nothing.
inline constexpr const char* c_sDebugOutputVariable = "KINETARIUM_DEBUG_OUTPUT";
