#pragma once

struct CCheckpoint;
struct COptions;

// A continued run has the world of its checkpoint. Throws CUsageError, naming the option and the allowed value, for an
// option that asks for another one.
void CheckAgainstCheckpoint(const COptions& options, const CCheckpoint& checkpoint);
