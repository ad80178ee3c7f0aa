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

std::uint32_t CollideRow(const CCollisionGrid& grid, int row, IWavefront& wavefront, IDrawTurn& turn,
                         CCellScratch& scratch, const CSimulationKernels& kernels)
{
    const int columns = grid.GetColumns();
    std::uint32_t uCollisions = 0;
    CCellList next = GetTestedAtoms(grid, row * columns);
    int runnable = 0;
    for (int column = 0; column < columns; ++column)
    {
        if (column >= runnable)
        {
            runnable = wavefront.AwaitCell(row, column);
        }
        const CCellList atoms = next;
        next = GetTestedAtoms(grid, row * columns + column + 1);
        uCollisions += kernels.pCollideCell(atoms, next, scratch, turn);
        wavefront.FinishCell(row, column);
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
        for (int row = wavefront.TakeRow(); row < grid.GetRows(); row = wavefront.TakeRow())
        {
            CDrawInRow turn(wavefront, row, random);
            uCollisions += CollideRow(grid, row, wavefront, turn, scratch, kernels);
        }
        return uCollisions;
    }
    catch (...)
    {
        wavefront.Abort(std::current_exception());
        throw;
    }
}
