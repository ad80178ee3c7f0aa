#pragma once

#include "headless/files/IByteSink.h"

#include <functional>
#include <memory>
#include <utility>

// Hands everything on to another sink and asks before each call whether to go on; the question throws if not.
class CInterruptibleSink : public IByteSink
{
public:
    CInterruptibleSink(std::unique_ptr<IByteSink> pSink, std::function<void()> check)
        : m_pSink(std::move(pSink)), m_Check(std::move(check))
    {
    }

    void Write(std::string_view sBytes) override
    {
        m_Check();
        m_pSink->Write(sBytes);
    }

    void Commit() override
    {
        m_Check();
        m_pSink->Commit();
    }

private:
    std::unique_ptr<IByteSink> m_pSink;
    std::function<void()> m_Check;
};
