#pragma once

#include <exception>

// Tells each thread which cells of a grid it may handle, so that the result is that of handling them one by one. See
// WavefrontRule.h.
struct IWavefront
{
    virtual ~IWavefront() = default;

    // The next row that no thread has taken, from the first on; the number of rows or more if none is left.
    virtual int TakeRow() = 0;

    // Waits until a cell of a taken row may be handled. Returns the end of the cells of the row that may be.
    virtual int AwaitCell(int row, int column) = 0;

    virtual void FinishCell(int row, int column) = 0;

    // Waits until the cell at work in that row may draw random numbers.
    virtual void AwaitDraw(int row) = 0;

    // Ends all waits, present and future, with that exception.
    virtual void Abort(std::exception_ptr pError) noexcept = 0;
};
