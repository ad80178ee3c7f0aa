#pragma once

#include "classes/core/CFixedText.h"
#include "classes/core/CrashText.h"

// The facts that a crash report asks the system for. None of these functions allocates.

CCrashTime GetCrashTime() noexcept;

// Total, free and own memory.
void GetCrashMemory(CCrashFacts& facts) noexcept;

// "Windows 10.0.19045", the true version, independent of the manifest.
void AddSystemVersion(CFixedText& text) noexcept;

// "4 processors, AVX2, no AVX-512".
void AddProcessor(CFixedText& text) noexcept;

// ", image checksum 0x1234": tells two builds of one version apart.
void AddImageChecksum(CFixedText& text) noexcept;
