#include "simulation/CCollisionGrid.h"

#include "simulation/CAtom.h"
#include "tests/reference/CReferenceWorld.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <stdexcept>
#include <vector>

namespace
{

CAtom MakeCircle(float x, float y, std::uint8_t radius)
{
    CAtom atom;
    atom.x = x;
    atom.y = y;
    atom.radius = radius;
    return atom;
}

CCollisionGrid MakeGrid(int width, int height)
{
    CCollisionGrid grid;
    grid.Resize({width, height});
    return grid;
}

// The cells that one atom is entered into, as (row, column).
std::set<std::pair<int, int>> GetCellsOf(CCollisionGrid& grid, CAtom atom)
{
    grid.Clear();
    grid.Insert(atom);
    std::set<std::pair<int, int>> cells;
    for (int cell = 0; cell < grid.GetCellCount(); ++cell)
    {
        if (!grid.GetCellAtoms(cell).empty())
        {
            cells.emplace(cell / grid.GetColumns(), cell % grid.GetColumns());
        }
    }
    return cells;
}

using Cells = std::set<std::pair<int, int>>;

TEST(CollisionGrid, AWorldNarrowerThan100UnitsGetsOneColumnOfTheWorldsWidth)
{
    const CCollisionGrid grid = MakeGrid(60, 250);
    EXPECT_EQ(grid.GetColumns(), 1);
    EXPECT_EQ(grid.GetCellWidth(), 60);
}

TEST(CollisionGrid, AWidthOf250GivesThreeColumnsOf84)
{
    const CCollisionGrid grid = MakeGrid(250, 60);
    EXPECT_EQ(grid.GetColumns(), 3);
    EXPECT_EQ(grid.GetCellWidth(), 84);
    EXPECT_EQ(grid.GetRows(), 1);
    EXPECT_EQ(grid.GetCellHeight(), 60);
}

TEST(CollisionGrid, TheSmallestWorldIsOneCellAndTheLargestTenThousand)
{
    const CCollisionGrid small = MakeGrid(10, 10);
    EXPECT_EQ(small.GetCellCount(), 1);
    EXPECT_EQ(small.GetCellWidth(), 10);
    const CCollisionGrid large = MakeGrid(9999, 9999);
    EXPECT_EQ(large.GetRows(), 100);
    EXPECT_EQ(large.GetColumns(), 100);
    EXPECT_EQ(large.GetCellWidth(), 100);
    EXPECT_EQ(large.GetCellHeight(), 100);
}

TEST(CollisionGrid, AMultipleOf100GetsCellsOfExactly100)
{
    const CCollisionGrid grid = MakeGrid(300, 101);
    EXPECT_EQ(grid.GetColumns(), 3);
    EXPECT_EQ(grid.GetCellWidth(), 100);
    EXPECT_EQ(grid.GetRows(), 2);
    EXPECT_EQ(grid.GetCellHeight(), 51);
}

TEST(CollisionGrid, AWorldWithoutAreaStillHasACell)
{
    CCollisionGrid grid = MakeGrid(0, 0);
    EXPECT_EQ(grid.GetCellCount(), 1);
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(5, 5, 3)), (Cells{{0, 0}}));
}

TEST(CollisionGrid, AWorldTooLargeForTheGridThrowsLengthErrorAndTheOldCellsStay)
{
    CCollisionGrid grid = MakeGrid(300, 200);
    EXPECT_THROW(grid.Resize({std::numeric_limits<int>::max(), std::numeric_limits<int>::max()}), std::length_error);
    EXPECT_EQ(grid.GetColumns(), 3);
    EXPECT_EQ(grid.GetRows(), 2);
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(150, 150, 3)), (Cells{{1, 1}}));
}

TEST(CollisionGrid, AnAtomAwayFromTheEdgesIsInOneCell)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(150, 150, 5)), (Cells{{1, 1}}));
}

TEST(CollisionGrid, AnAtomTouchingACellEdgeIsAlsoInTheNextCell)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(195, 150, 5)), (Cells{{1, 1}, {1, 2}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(105, 150, 5)), (Cells{{1, 1}, {1, 0}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(150, 195, 5)), (Cells{{1, 1}, {2, 1}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(150, 105, 5)), (Cells{{1, 1}, {0, 1}}));
}

TEST(CollisionGrid, AnAtomOneFloatAwayFromACellEdgeIsInOneCell)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(std::nextafter(195.0F, 0.0F), 150, 5)), (Cells{{1, 1}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(std::nextafter(105.0F, 300.0F), 150, 5)), (Cells{{1, 1}}));
}

TEST(CollisionGrid, ADiagonalNeighbourIsEnteredOnlyIfTheCornerIsWithinOrOnTheCircle)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    // The corner (200, 100) is 3 to the right and 4 up: exactly on the circle of radius 5.
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(197, 104, 5)), (Cells{{1, 1}, {0, 1}, {1, 2}, {0, 2}}));
    // Here it is 4 to the right and 4 up: outside of the circle, which reaches both edges.
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(196, 104, 5)), (Cells{{1, 1}, {0, 1}, {1, 2}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(197, 196, 5)), (Cells{{1, 1}, {2, 1}, {1, 2}, {2, 2}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(103, 196, 5)), (Cells{{1, 1}, {2, 1}, {1, 0}, {2, 0}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(103, 104, 5)), (Cells{{1, 1}, {0, 1}, {1, 0}, {0, 0}}));
}

TEST(CollisionGrid, NeighboursOutsideTheGridAreSkipped)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(2, 2, 5)), (Cells{{0, 0}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(298, 298, 5)), (Cells{{2, 2}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(298, 199, 5)), (Cells{{1, 2}, {2, 2}}));
}

TEST(CollisionGrid, ACentreAtOrBeyondTheEdgeOfTheWorldGoesIntoTheEdgeCell)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(300, 150, 5)), (Cells{{1, 2}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(350, 150, 5)), (Cells{{1, 2}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(-50, -0.5F, 5)).count({0, 0}), 1U);
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(150, 1e9F, 5)).count({2, 1}), 1U);
}

TEST(CollisionGrid, PositionsOutsideTheRangeOfAnIntegerStayInsideTheGrid)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    for (const float huge : {1e12F, 1e30F, std::numeric_limits<float>::max(), std::numeric_limits<float>::infinity()})
    {
        EXPECT_EQ(GetCellsOf(grid, MakeCircle(huge, huge, 5)).count({2, 2}), 1U);
        EXPECT_EQ(GetCellsOf(grid, MakeCircle(-huge, -huge, 5)).count({0, 0}), 1U);
    }
}

TEST(CollisionGrid, ANanPositionGoesToCellZero)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(nan, nan, 5)), (Cells{{0, 0}}));
    EXPECT_EQ(GetCellsOf(grid, MakeCircle(nan, 250, 5)).count({2, 0}), 1U);
}

TEST(CollisionGrid, ACellListsItsAtomsInTheOrderOfInsertion)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    std::vector<CAtom> atoms = {MakeCircle(50, 50, 3), MakeCircle(99, 50, 3), MakeCircle(150, 50, 3),
                                MakeCircle(101, 50, 3), MakeCircle(60, 60, 3)};
    for (CAtom& atom : atoms)
    {
        grid.Insert(atom);
    }
    const auto first = grid.GetCellAtoms(0);
    EXPECT_EQ(std::vector<CAtom*>(first.begin(), first.end()),
              (std::vector<CAtom*>{&atoms[0], &atoms[1], &atoms[3], &atoms[4]}));
    const auto second = grid.GetCellAtoms(1);
    EXPECT_EQ(std::vector<CAtom*>(second.begin(), second.end()),
              (std::vector<CAtom*>{&atoms[1], &atoms[2], &atoms[3]}));
}

TEST(CollisionGrid, AnAtomInsertedAfterAReadIsInTheNextRead)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    CAtom one = MakeCircle(50, 50, 3);
    CAtom two = MakeCircle(60, 60, 3);
    grid.Insert(one);
    EXPECT_EQ(grid.GetCellAtoms(0).size(), 1U);
    grid.Insert(two);
    ASSERT_EQ(grid.GetCellAtoms(0).size(), 2U);
    EXPECT_EQ(grid.GetCellAtoms(0)[1], &two);
}

TEST(CollisionGrid, ClearingAndResizingEmptyEveryCell)
{
    CCollisionGrid grid = MakeGrid(300, 300);
    CAtom atom = MakeCircle(100, 100, 3);
    grid.Insert(atom);
    grid.Clear();
    for (int cell = 0; cell < grid.GetCellCount(); ++cell)
    {
        EXPECT_TRUE(grid.GetCellAtoms(cell).empty());
    }
    grid.Insert(atom);
    grid.Resize({500, 300});
    EXPECT_EQ(grid.GetCellCount(), 15);
    for (int cell = 0; cell < grid.GetCellCount(); ++cell)
    {
        EXPECT_TRUE(grid.GetCellAtoms(cell).empty());
    }
}

// Positions are drawn near the edges of cells, where rounding decides; radii are drawn from the full range of an atom.
TEST(CollisionGrid, EveryAtomGoesIntoTheSameCellsAsInThePlainForm)
{
    std::mt19937 draw(7);
    const std::array<CSize<int>, 4> worlds = {CSize<int>{101, 257}, {512, 999}, {9999, 350}, {60, 202}};
    for (const CSize<int>& size : worlds)
    {
        CCollisionGrid grid;
        grid.Resize(size);
        CReferenceWorld reference(size, 1);
        for (int round = 0; round < 3000; ++round)
        {
            std::uniform_int_distribution<int> edge(-1, grid.GetColumns() + 1);
            std::uniform_int_distribution<int> row(-1, grid.GetRows() + 1);
            std::uniform_int_distribution<int> radius(1, 255);
            std::uniform_int_distribution<int> offset(-260, 260);
            std::uniform_int_distribution<int> step(-2, 2);
            CAtom atom = MakeCircle(static_cast<float>(edge(draw) * grid.GetCellWidth() + offset(draw)),
                                    static_cast<float>(row(draw) * grid.GetCellHeight() + offset(draw)),
                                    static_cast<std::uint8_t>(radius(draw)));
            atom.x = std::nextafter(atom.x, atom.x + static_cast<float>(step(draw)));
            atom.y = std::nextafter(atom.y, atom.y + static_cast<float>(step(draw)));
            reference.ClearCells();
            reference.Enter(atom);
            Cells expected;
            for (int cell = 0; cell < grid.GetCellCount(); ++cell)
            {
                if (!reference.GetCell(cell / grid.GetColumns(), cell % grid.GetColumns()).empty())
                {
                    expected.emplace(cell / grid.GetColumns(), cell % grid.GetColumns());
                }
            }
            ASSERT_EQ(GetCellsOf(grid, atom), expected)
                << "at " << atom.x << ", " << atom.y << " with radius " << static_cast<int>(atom.radius);
        }
    }
}

} // namespace
