#pragma once

// Prints time per iteration and memory for 1,000 to 1,000,000 atoms: first in worlds of constant density, then in the
// largest world.
void PrintGrowth();
