#include "headless/recorded/CFrameRecorder.h"

#include "headless/files/CByteReader.h"
#include "headless/files/CByteWriter.h"

#include <utility>

namespace
{

constexpr std::size_t c_uMostPositionBytes = 64;

// The pieces of a frame on their way into the file.
class CFrameSink : public IByteSink
{
public:
    CFrameSink(CGrowingFile& file, const std::function<void()>& check) : m_File(file), m_Check(check) {}

    void Write(std::string_view sBytes) override
    {
        m_Check();
        m_File.Write(sBytes);
        m_File.KeepNowAndThen();
    }

    // The file is committed at the end of the run.
    void Commit() override {}

private:
    CGrowingFile& m_File;
    const std::function<void()>& m_Check;
};

} // namespace

CFrameRecorder::CFrameRecorder(const std::string& sPath, IByteSink* pStandardOutput, const CFrameTimes& times,
                               std::unique_ptr<IFrameFormat> pFormat, std::function<void()> check)
    : CFileObserver(sPath, pStandardOutput, pFormat->GetHeader()),
      m_Times(times),
      m_pFormat(std::move(pFormat)),
      m_Check(std::move(check)),
      m_sPosition(GetPosition())
{
}

void CFrameRecorder::Observe(const CRunMoment& moment)
{
    m_sEnd.clear();
    const bool bRegular = IsRegular(moment.iteration);
    if (!bRegular && !(m_Times.bStartAndEnd && moment.bLast))
    {
        return;
    }
    WriteHeaderOnce();
    CFrameSink sink(m_File, m_Check);
    m_pFormat->WriteFrame(moment, sink);
    m_bBegun = true;
    m_bEndMissing = false;
    (bRegular ? m_sPosition : m_sEnd) = GetPosition();
}

std::string CFrameRecorder::GetProgress() const
{
    return MakeBytes([this](CByteWriter& writer) {
        writer.WriteText(m_sPosition);
        writer.WriteText(m_sEnd);
    });
}

void CFrameRecorder::Continue(std::string_view sProgress)
{
    CByteReader reader(sProgress);
    m_sPosition = reader.ReadText(c_uMostPositionBytes);
    m_sEnd = reader.ReadText(c_uMostPositionBytes);
    ContinueAt(m_sPosition);
    m_bEndMissing = !m_sEnd.empty();
    m_bBegun = m_File.GetLength() > 0;
    // Who reads a pipe now has not seen the header.
    m_bHeaderWritten = m_bBegun && !m_File.IsDirect();
}

bool CFrameRecorder::MayObserveAgain() const
{
    return true;
}

void CFrameRecorder::Commit()
{
    // A run that was continued for no iteration has the same end as before.
    if (m_bEndMissing && !m_sEnd.empty())
    {
        ContinueAt(m_sEnd);
    }
    WriteHeaderOnce();
    m_File.Commit();
}

bool CFrameRecorder::IsRegular(std::uint64_t uIteration) const
{
    return (m_Times.every && uIteration % *m_Times.every == 0) || (m_Times.bStartAndEnd && !m_bBegun);
}

std::string CFrameRecorder::GetPosition() const
{
    return MakeBytes([this](CByteWriter& writer) { m_File.SavePosition(writer); });
}

void CFrameRecorder::ContinueAt(std::string_view sPosition)
{
    CByteReader reader(sPosition);
    m_File.Continue(reader);
}
