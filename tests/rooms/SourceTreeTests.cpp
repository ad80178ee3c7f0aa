#include "tests/rooms/SourceTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <stdexcept>

namespace fs = std::filesystem;

namespace
{

// A folder of its own, removed with everything in it.
class SourceTree : public testing::Test
{
protected:
    SourceTree() { fs::create_directories(m_Root); }
    ~SourceTree() override { fs::remove_all(m_Root); }

    void Write(const std::string& sPath, const std::string& sText) const
    {
        fs::create_directories((m_Root / sPath).parent_path());
        std::ofstream(m_Root / sPath, std::ios::binary) << sText;
    }

    const fs::path m_Root = fs::temp_directory_path() / ("kinetarium-rooms-" + std::to_string(std::random_device()()));
};

} // namespace

TEST_F(SourceTree, HoldsEverySourceByItsPathFromTheRoot)
{
    Write("app/Program.cpp", "int i;\n");
    Write("app/deep/build/Part.h", "\r\n");
    Write("app/CMakeLists.txt", "#include");

    EXPECT_THAT(ReadSourceTree(m_Root), testing::ElementsAre(std::pair("app/Program.cpp", "int i;\n"),
                                                             std::pair("app/deep/build/Part.h", "\r\n")));
}

TEST_F(SourceTree, LeavesOutBuildAndHiddenFolders)
{
    Write("build/native/Generated.cpp", "");
    Write("out/Copy.h", "");
    Write(".cache/Copy.h", "");
    Write("app/.cache/Copy.h", "");

    EXPECT_THAT(ReadSourceTree(m_Root), testing::IsEmpty());
}

TEST_F(SourceTree, AFileThatCannotBeReadIsNamed)
{
    EXPECT_THROW(ReadWholeFile(m_Root / "missing"), std::runtime_error);
    EXPECT_THROW(ReadSourceTree(m_Root / "missing"), fs::filesystem_error);
}

TEST_F(SourceTree, TheFolderOfAPathIsThePartBeforeItsName)
{
    EXPECT_EQ(GetFolder("a/b/C.cpp"), "a/b");
    EXPECT_EQ(GetFolder("C.cpp"), "");
}
