#pragma once

#include <string>

struct CRunMoment;
struct IByteSink;

// How the frames of a recording are written. A file is its header and frame after frame.
struct IFrameFormat
{
    virtual ~IFrameFormat() = default;

    virtual std::string GetHeader() const = 0;

    // Writes the frame of this moment in pieces of at most some 100 kB. Throws the errors of the sink and
    // std::bad_alloc.
    virtual void WriteFrame(const CRunMoment& moment, IByteSink& sink) = 0;
};
