#pragma once

// The event that tells the thread that stops the worker that the loop has ended. Stays set until it is reset.
struct IFinishedEvent
{
    virtual ~IFinishedEvent() = default;

    virtual void Reset() noexcept = 0;
    virtual void Set() noexcept = 0;
};
