#pragma once

#include "headless/files/IByteSink.h"

#include <memory>

// Compresses bytes into one member of a gzip file (RFC 1952) and hands it on piece by piece. Several members in a row
// are one file, whose readers get the bytes of all of them. The same bytes in give the same bytes out on every machine
// that has the same zlib.
class CGzipSink : public IByteSink
{
public:
    // The sink must outlive this object. Throws std::bad_alloc.
    explicit CGzipSink(IByteSink& sink);
    CGzipSink(const CGzipSink&) = delete;
    CGzipSink& operator=(const CGzipSink&) = delete;
    ~CGzipSink() override;

    void Write(std::string_view sBytes) override;

    // Ends the member and does not commit the other sink.
    void Commit() override;

private:
    struct CStream;

    int Compress(int flush);
    void HandOn();

    IByteSink& m_Sink;
    std::unique_ptr<CStream> m_pStream;
};
