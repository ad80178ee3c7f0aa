#include "headless/console/HeadlessError.h"
#include "headless/files/COutputFile.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

#include <cerrno>

// Some disks, above all those of a network, report a failed write only when the file is flushed or closed. The linker
// leads the program's calls of fsync and close here.

namespace
{

int g_iFlushError = 0; // errno of a call that fails; 0 for none
int g_iCloseError = 0;

} // namespace

extern "C"
{
    // NOLINTBEGIN(bugprone-reserved-identifier): the linker makes these names from those of the functions.
    int __real_fsync(int file);
    int __real_close(int file);

    int __wrap_fsync(int file)
    {
        const int result = __real_fsync(file);
        errno = g_iFlushError != 0 ? g_iFlushError : errno;
        return g_iFlushError != 0 ? -1 : result;
    }

    // The file is closed even if closing it fails.
    int __wrap_close(int file)
    {
        const int result = __real_close(file);
        errno = g_iCloseError != 0 ? g_iCloseError : errno;
        return g_iCloseError != 0 ? -1 : result;
    }
    // NOLINTEND(bugprone-reserved-identifier)
}

namespace
{

class LateDiskError : public testing::Test
{
protected:
    ~LateDiskError() override
    {
        g_iFlushError = 0;
        g_iCloseError = 0;
    }

    // Replaces a file, and expects the error and the old file unchanged.
    static void ExpectError(const std::string& sReason)
    {
        const CTemporaryFolder folder;
        const std::string sPath = folder.WriteFile("a.csv", "old");
        {
            COutputFile file(sPath);
            file.Write("new");
            try
            {
                file.Commit();
                ADD_FAILURE() << "the file counts as written";
            }
            catch (const CHeadlessError& error)
            {
                EXPECT_EQ(error.what(), sPath + ": cannot be written: " + sReason);
            }
        }
        EXPECT_EQ(ReadFile(sPath), "old");
        EXPECT_EQ(folder.GetNames(), std::vector<std::string>{"a.csv"});
    }
};

TEST_F(LateDiskError, AFailedFlushKeepsTheOldFile)
{
    g_iFlushError = EIO;
    ExpectError("Input/output error");
}

TEST_F(LateDiskError, AFailedCloseKeepsTheOldFile)
{
    g_iCloseError = ENOSPC;
    ExpectError("No space left on device");
}

TEST_F(LateDiskError, OfTwoErrorsTheFirstIsReported)
{
    g_iFlushError = EDQUOT;
    g_iCloseError = EIO;
    ExpectError("Disk quota exceeded");
}

} // namespace
