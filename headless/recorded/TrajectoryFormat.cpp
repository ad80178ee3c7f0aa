#include "headless/recorded/TrajectoryFormat.h"

#include "headless/console/NumberText.h"
#include "headless/files/CGzipSink.h"
#include "headless/observed/IRunObserver.h"
#include "settings/CSettings.h"
#include "simulation/CAtoms.h"

#include <string>

namespace
{

constexpr std::size_t c_uPieceBytes = std::size_t{64} * 1024;

std::string GetComment(const CRunMoment& moment, std::uint64_t uSeed)
{
    const CSize<int>& world = moment.settings.world;
    return "Lattice=\"" + std::to_string(world.cx) + ".0 0.0 0.0 0.0 " + std::to_string(world.cy) +
           ".0 0.0 0.0 0.0 1.0\" Properties=species:S:1:pos:R:3:velo:R:3:radius:R:1 pbc=\"F F F\" iteration=" +
           std::to_string(moment.iteration) + " seed=" + std::to_string(uSeed) + '\n';
}

// X is the symbol of an atom of no element.
void AppendAtom(std::string& sText, const CAtom& atom)
{
    sText += "X ";
    AppendFloat(sText, atom.x);
    sText += ' ';
    AppendFloat(sText, atom.y);
    sText += " 0 ";
    AppendFloat(sText, atom.vx);
    sText += ' ';
    AppendFloat(sText, atom.vy);
    sText += " 0 ";
    sText += std::to_string(atom.radius);
    sText += '\n';
}

class CTrajectoryFormat : public IFrameFormat
{
public:
    CTrajectoryFormat(std::uint64_t uSeed, bool bGzip) : m_uSeed(uSeed), m_bGzip(bGzip) {}

    std::string GetHeader() const override { return {}; }

    void WriteFrame(const CRunMoment& moment, IByteSink& sink) override
    {
        if (!m_bGzip)
        {
            WriteText(moment, sink);
            return;
        }
        CGzipSink member(sink);
        WriteText(moment, member);
        member.Commit();
    }

private:
    void WriteText(const CRunMoment& moment, IByteSink& sink) const
    {
        std::string sText = std::to_string(moment.atoms.GetCount()) + '\n' + GetComment(moment, m_uSeed);
        for (std::int32_t i = 0; i < moment.atoms.GetCount(); ++i)
        {
            AppendAtom(sText, moment.atoms[i]);
            if (sText.size() >= c_uPieceBytes)
            {
                sink.Write(sText);
                sText.clear();
            }
        }
        sink.Write(sText);
    }

    std::uint64_t m_uSeed;
    bool m_bGzip;
};

} // namespace

std::unique_ptr<IFrameFormat> MakeTrajectoryFormat(std::uint64_t uSeed, bool bGzip)
{
    return std::make_unique<CTrajectoryFormat>(uSeed, bGzip);
}
