#pragma once

class CRandom;

// Waits until a response may draw random numbers. The order of the draws is part of what a seed means: it is that of
// the cells, also when several threads handle cells at the same time.
struct IDrawTurn
{
    virtual ~IDrawTurn() = default;

    // The generator, as soon as every cell before the present one is done.
    virtual CRandom& Await() = 0;
};
