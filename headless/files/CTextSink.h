#pragma once

#include "headless/files/IByteSink.h"

#include <string>
#include <string_view>

// A sink that keeps its bytes in memory.
class CTextSink : public IByteSink
{
public:
    void Write(std::string_view sBytes) override { m_sText += sBytes; }
    void Commit() override { m_bCommitted = true; }

    const std::string& GetText() const { return m_sText; }
    bool IsCommitted() const { return m_bCommitted; }

private:
    std::string m_sText;
    bool m_bCommitted = false;
};
