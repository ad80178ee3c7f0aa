#pragma once

#include <exception>

// Cells of one row of a grid that follow each other, from first to end - 1.
struct CCellRun
{
    int row{};
    int first{};
    int end{};

    bool operator==(const CCellRun&) const = default;
};

// Tells each thread which cells of a grid it may handle, so that the result is that of handling them one by one. See
// WavefrontRule.h.
struct IWavefront
{
    virtual ~IWavefront() = default;

    // Waits until this thread may handle some cells, and sets run to them; they are for this thread alone, from the
    // left to the right. False if none are left. Before, run holds the cells that the thread took last and has handled;
    // none if it took none.
    virtual bool TakeCells(CCellRun& run) = 0;

    // Call it after each cell of a run.
    virtual void FinishCell(int row, int column) = 0;

    // Waits until the cell at work in that row may draw random numbers.
    virtual void AwaitDraw(int row) = 0;

    // Ends all waits, present and future, with that exception.
    virtual void Abort(std::exception_ptr pError) noexcept = 0;
};
