#pragma once

struct CGridGeometry;

// When a cell may be handled while others of the grid are at work, so that the result is that of handling them one by
// one, row by row. A cell waits for those earlier cells that may list one of its atoms.
//
// An atom is listed by the cell of its centre and by neighbours of that cell. While it is smaller than a cell, all of
// these touch each other. Then a cell depends on its eight neighbours only, of which four are earlier. The cells of a
// row are handled from left to right; so it is enough that cell (row, column) waits for (row - 1, column + 1). A larger
// atom can be listed on both sides of its cell, so in cells two columns and two rows apart. Then cell (row, column)
// waits for (row - 1, column + 2), which has itself waited for (row - 2, column + 4).
struct CWavefrontRule
{
    int rows{};
    int columns{};
    int lag{}; // columns that a row stays behind the row above: 1 or 2

    // The rule for atoms of up to that radius, in world units.
    static CWavefrontRule Get(const CGridGeometry& geometry, int largestRadius);

    // The number of cells of the row above that must be done before the cell in this column may be handled.
    int GetNeeded(int column) const;

    // The number of cells of a row that may be handled when so many of the row above are done.
    int GetRunnable(int doneAbove) const;

    // The same before a cell may draw random numbers: then the row above must be complete, and with it are all earlier
    // rows. So the draws come in the order of the cells.
    int GetNeededToDraw() const { return columns; }

    // The most rows that can be at work at the same time.
    int GetMostRowsAtWork() const;
};
