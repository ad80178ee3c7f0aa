#pragma once

// The event by which whoever stops the worker learns that its loop has ended. It stays set until it is reset.
struct IFinishedEvent
{
    virtual ~IFinishedEvent() = default;

    virtual void Reset() noexcept = 0;
    virtual void Set() noexcept = 0;
};
