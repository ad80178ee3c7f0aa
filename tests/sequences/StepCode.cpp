#include "tests/sequences/StepCode.h"

#include <sstream>

namespace
{
void WriteStep(std::ostream& out, const CStep& step)
{
    out << "        {EnumAction::" << GetName(step.eAction);
    const std::size_t uValues = GetValueCount(step.eAction);
    if (uValues > 0 || step.bMeanwhile)
    {
        out << ", {";
        for (std::size_t u = 0; u < uValues; ++u)
        {
            out << (u > 0 ? ", " : "") << step.values[u];
        }
        out << '}';
    }
    out << (step.bMeanwhile ? ", c_bMeanwhile},\n" : "},\n");
}
} // namespace

std::string WriteTest(const std::string& sName, const std::vector<CStep>& steps)
{
    std::ostringstream out;
    out << "TEST_F(ScriptedSequence, " << sName << ")\n{\n    ExpectAsPredicted({\n";
    for (const CStep& step : steps)
    {
        WriteStep(out, step);
    }
    out << "    });\n}\n";
    return out.str();
}
