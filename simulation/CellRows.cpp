#include "simulation/CellRows.h"

#include "simulation/CCollisionGrid.h"
#include "simulation/CSimulationKernels.h"
#include "simulation/IDrawTurn.h"
#include "simulation/Iteration.h"
#include "simulation/IWavefront.h"

namespace
{

// The turn of the cell that is at work in a row.
class CDrawInRow final : public IDrawTurn
{
public:
    CDrawInRow(IWavefront& wavefront, int row, CRandom& random) : m_Wavefront(wavefront), m_iRow(row), m_Random(random)
    {
    }

    CRandom& Await() override
    {
        m_Wavefront.AwaitDraw(m_iRow);
        return m_Random;
    }

private:
    IWavefront& m_Wavefront;
    int m_iRow;
    CRandom& m_Random;
};

std::uint32_t CollideRun(const CCollisionGrid& grid, const CCellRun& run, IWavefront& wavefront, IDrawTurn& turn,
                         CCellScratch& scratch, const CSimulationKernels& kernels)
{
    const int firstOfRow = run.row * grid.GetColumns();
    std::uint32_t uCollisions = 0;
    CCellList next = GetTestedAtoms(grid, firstOfRow + run.first);
    for (int column = run.first; column < run.end; ++column)
    {
        const CCellList atoms = next;
        next = GetTestedAtoms(grid, firstOfRow + column + 1);
        uCollisions += kernels.pCollideCell(atoms, next, scratch, turn);
        wavefront.FinishCell(run.row, column);
    }
    return uCollisions;
}

} // namespace

std::uint32_t CollideRows(const CCollisionGrid& grid, IWavefront& wavefront, CRandom& random,
                          const CSimulationKernels& kernels)
{
    try
    {
        CCellScratch scratch;
        std::uint32_t uCollisions = 0;
        CCellRun run;
        while (wavefront.TakeCells(run))
        {
            CDrawInRow turn(wavefront, run.row, random);
            uCollisions += CollideRun(grid, run, wavefront, turn, scratch, kernels);
        }
        return uCollisions;
    }
    catch (...)
    {
        wavefront.Abort(std::current_exception());
        throw;
    }
}
