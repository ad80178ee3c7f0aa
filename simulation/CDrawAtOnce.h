#pragma once

#include "simulation/IDrawTurn.h"

// The turn of a thread that handles all cells in order: always.
class CDrawAtOnce final : public IDrawTurn
{
public:
    explicit CDrawAtOnce(CRandom& random) : m_Random(random) {}

    CRandom& Await() override { return m_Random; }

private:
    CRandom& m_Random;
};
