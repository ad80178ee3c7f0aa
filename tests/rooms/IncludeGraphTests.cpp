#include "tests/rooms/IncludeGraph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

// The targets of the includes of a file core/User.cpp with that text, in a tree that also has core/Number.h, Number.h
// and window/Window.h.
std::vector<std::string> FindTargets(const std::string& sText)
{
    const CSourceTree tree{{"Number.h", ""}, {"core/Number.h", ""}, {"core/User.cpp", sText}, {"window/Window.h", ""}};
    std::vector<std::string> targets;
    for (const CInclude& include : FindIncludes(tree))
    {
        targets.push_back(include.sTarget);
    }
    return targets;
}

// Makes a graph from the names of its arrows: "ab" is an arrow from a to b.
std::vector<std::vector<std::string>> FindCirclesOf(const std::vector<std::string>& arrows)
{
    CGraph graph;
    for (const std::string& sArrow : arrows)
    {
        graph[sArrow.substr(0, 1)].emplace(sArrow.substr(1), nullptr);
    }
    return FindCircles(graph);
}

} // namespace

TEST(IncludeGraph, ANameIsLookedForBesideTheFileAndThenFromTheRoot)
{
    EXPECT_THAT(FindTargets("#include \"Number.h\"\n"), ElementsAre("core/Number.h"));
    EXPECT_THAT(FindTargets("#include \"window/Window.h\"\n"), ElementsAre("window/Window.h"));
    EXPECT_THAT(FindTargets("#include \"../window/./Window.h\"\n"), ElementsAre("window/Window.h"));
}

TEST(IncludeGraph, AngleBracketsHideNoFileOfTheTree)
{
    EXPECT_THAT(FindTargets("#include <window/Window.h>\n"), ElementsAre("window/Window.h"));
    EXPECT_THAT(FindTargets("#include <vector>\n#include <stb/image.h>\n"), IsEmpty());
}

TEST(IncludeGraph, BlanksAndLineEndsHideNoDirective)
{
    EXPECT_THAT(FindTargets("  #  include\t\"Number.h\" // why\r\n"), ElementsAre("core/Number.h"));
    EXPECT_THAT(FindTargets("#include \"Number.h\""), ElementsAre("core/Number.h"));
    EXPECT_THAT(FindTargets("#include\"Number.h\"\n"), ElementsAre("core/Number.h"));
}

TEST(IncludeGraph, ALineThatOnlyMentionsADirectiveDoesNotCount)
{
    EXPECT_THAT(FindTargets("// #include \"Number.h\"\nauto s = \"#include \\\"Number.h\\\"\";\n"), IsEmpty());
}

TEST(IncludeGraph, ADirectiveIsDescribedByFileLineAndText)
{
    const std::vector<CInclude> includes = FindIncludes({{"a/B.cpp", "\n  #include \"x.h\"  \r\n"}});

    ASSERT_EQ(includes.size(), 1U);
    EXPECT_EQ(DescribeInclude(includes.front()), "a/B.cpp:2: #include \"x.h\"");
}

TEST(IncludeGraph, AGraphWithoutACircleHasNone)
{
    EXPECT_THAT(FindCirclesOf({"ab", "ac", "bd", "cd", "ad"}), IsEmpty());
}

TEST(IncludeGraph, ACircleIsTheShortestAndBeginsWithItsFirstName)
{
    EXPECT_THAT(FindCirclesOf({"xc", "ca", "ab", "bc", "ba"}), ElementsAre(ElementsAre("a", "b")));
    EXPECT_THAT(FindCirclesOf({"xc", "ca", "ab", "bc"}), ElementsAre(ElementsAre("a", "b", "c")));
}

TEST(IncludeGraph, EveryCircleIsReportedOnce)
{
    EXPECT_THAT(FindCirclesOf({"ab", "ba", "cd", "dc", "bc"}),
                ElementsAre(ElementsAre("a", "b"), ElementsAre("c", "d")));
}
