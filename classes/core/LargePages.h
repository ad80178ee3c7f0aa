#pragma once

// Asks the system to use large pages (usually 2 MB) for the memory from pFirst to pEnd, so that a program that reads it
// in any order finds more of its addresses in the processor's tables. Only advice: without effect where the system does
// not know it, and for parts that fill no large page. Call it before the memory is used for the first time.
//
// Without effect on Windows: there, large pages need a privilege that users do not have by default.
void PreferLargePages(void* pFirst, void* pEnd) noexcept;
