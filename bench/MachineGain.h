#pragma once

class CHelperPool;

// How many times as much all threads of the pool and this one compute at once as this one alone: sums that need no
// memory, for some milliseconds. As many as there are threads if each has a processor core of its own; less if some
// share a core with each other or with other programs, also those of other virtual machines.
double MeasureMachineGain(CHelperPool& helpers);
