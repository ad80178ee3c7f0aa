#pragma once

// Prints what an iteration takes, and how much memory a world, for 1,000 to 1,000,000 atoms: once in worlds that grow
// with them, and once in the largest world.
void PrintGrowth();
