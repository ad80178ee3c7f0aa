#include "headless/HeadlessMain.h"

#include "headless/CExperiment.h"
#include "headless/console/HeadlessError.h"
#include "headless/console/NumberText.h"
#include "headless/options/COptions.h"

#include <exception>
#include <new>

namespace
{

void RunProgram(const std::vector<std::string>& arguments, const CConsole& console)
{
    const CParsedOptions parsed = ParseOptions(arguments);
    if (parsed.answer)
    {
        console.out << *parsed.answer << std::flush;
        if (!console.out)
        {
            throw CHeadlessError("standard output: cannot be written");
        }
        return;
    }
    CExperiment(parsed.options, console).Run();
}

} // namespace

int HeadlessMain(const std::vector<std::string>& arguments, const CConsole& console)
{
    try
    {
        RunProgram(arguments, console);
        return c_iExitSuccess;
    }
    catch (const CUsageError& error)
    {
        console.err << "error: " << EscapeUnprintable(error.what())
                    << "\nkinetarium-headless --help shows all options.\n";
        return error.GetExitCode();
    }
    catch (const CHeadlessError& error)
    {
        console.err << "error: " << EscapeUnprintable(error.what()) << '\n';
        return error.GetExitCode();
    }
    catch (const std::bad_alloc&)
    {
        console.err << "error: there is not enough memory\n";
    }
    catch (const std::exception& error)
    {
        console.err << "error: " << error.what() << '\n';
    }
    return c_iExitFailure;
}
