#include "simulation/CellRows.h"

#include "simulation/CCollisionGrid.h"
#include "simulation/CSimulationKernels.h"
#include "simulation/IDrawTurn.h"
#include "simulation/Iteration.h"
#include "simulation/IWavefront.h"

#include <algorithm>
#include <cstddef>

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

// How many cells before their turn the atoms of a cell are prefetched. Another processor may have written them last;
// then they can take longer to come than a cell of few atoms is at work.
int CountCellsAhead(const CCollisionGrid& grid)
{
    constexpr std::size_t c_uAtomsAhead = 20;
    constexpr std::size_t c_uMostCells = 8;
    const std::size_t uEntries = std::max<std::size_t>(grid.GetEntryCount(), 1);
    const std::size_t uCells = static_cast<std::size_t>(grid.GetCellCount()) * c_uAtomsAhead / uEntries + 1;
    return static_cast<int>(std::min(uCells, c_uMostCells));
}

std::uint32_t CollideRun(const CCollisionGrid& grid, const CCellRun& run, int cellsAhead, IWavefront& wavefront,
                         IDrawTurn& turn, CCellScratch& scratch, const CSimulationKernels& kernels)
{
    const int firstOfRow = run.row * grid.GetColumns();
    std::uint32_t uCollisions = 0;
    for (int column = run.first; column < run.end; ++column)
    {
        const int cell = firstOfRow + column;
        const CCellList ahead = GetTestedAtoms(grid, std::min(cell + cellsAhead, grid.GetCellCount()));
        uCollisions += kernels.pCollideCell(GetTestedAtoms(grid, cell), ahead, scratch, turn);
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
        const int cellsAhead = CountCellsAhead(grid);
        CCellRun run;
        while (wavefront.TakeCells(run))
        {
            CDrawInRow turn(wavefront, run.row, random);
            uCollisions += CollideRun(grid, run, cellsAhead, wavefront, turn, scratch, kernels);
        }
        return uCollisions;
    }
    catch (...)
    {
        wavefront.Abort(std::current_exception());
        throw;
    }
}
