#include "tests/rooms/IncludeGraph.h"

#include <algorithm>
#include <deque>
#include <filesystem>
#include <optional>
#include <set>
#include <string_view>

namespace fs = std::filesystem;

namespace
{

constexpr std::string_view c_sBlanks = " \t\r";

std::string_view SkipBlanks(std::string_view sText)
{
    sText.remove_prefix(std::min(sText.find_first_not_of(c_sBlanks), sText.size()));
    return sText;
}

// What follows "#include" in a line, if the line is one.
std::optional<std::string_view> FindDirective(std::string_view sLine)
{
    constexpr std::string_view sWord = "include";
    std::string_view sRest = SkipBlanks(sLine);
    if (!sRest.starts_with('#'))
    {
        return std::nullopt;
    }
    sRest = SkipBlanks(sRest.substr(1));
    return sRest.starts_with(sWord) ? std::optional(SkipBlanks(sRest.substr(sWord.size()))) : std::nullopt;
}

std::string FindTarget(const CSourceTree& tree, const std::string& sFile, const std::string& sName, bool bBesideFirst)
{
    const std::string sBeside = (fs::path(GetFolder(sFile)) / sName).lexically_normal().generic_string();
    if (bBesideFirst && tree.contains(sBeside))
    {
        return sBeside;
    }
    const std::string sFromRoot = fs::path(sName).lexically_normal().generic_string();
    return tree.contains(sFromRoot) ? sFromRoot : std::string();
}

void AddInclude(const CSourceTree& tree, CInclude include, std::string_view sName, std::vector<CInclude>& includes)
{
    const bool bQuoted = sName.starts_with('"');
    if (!bQuoted && !sName.starts_with('<'))
    {
        include.bChecked = false;
        includes.push_back(std::move(include));
        return;
    }
    const std::string sPlain(sName.substr(1, std::min(sName.find(bQuoted ? '"' : '>', 1), sName.size()) - 1));
    include.sTarget = FindTarget(tree, include.sFile, sPlain, bQuoted);
    if (bQuoted || !include.sTarget.empty())
    {
        includes.push_back(std::move(include));
    }
}

std::string GetUnit(const std::string& sFile)
{
    return sFile.substr(0, sFile.rfind('.'));
}

template<class GetNode>
CGraph MakeGraph(const std::vector<CInclude>& includes, GetNode getNode)
{
    CGraph graph;
    for (const CInclude& include : includes)
    {
        const std::string sFrom = getNode(include.sFile);
        const std::string sTo = getNode(include.sTarget);
        if (!include.sTarget.empty() && sFrom != sTo)
        {
            graph[sFrom].emplace(sTo, &include);
        }
    }
    return graph;
}

// The shortest way from a node back to itself; empty if there is none.
std::vector<std::string> FindWayBack(const CGraph& graph, const std::string& sStart)
{
    std::map<std::string, std::string> cameFrom;
    std::deque<std::string> waiting{sStart};
    while (!waiting.empty() && !cameFrom.contains(sStart))
    {
        const std::string sNode = waiting.front();
        waiting.pop_front();
        const auto arrows = graph.find(sNode);
        if (arrows == graph.end())
        {
            continue;
        }
        for (const auto& [sNext, pInclude] : arrows->second)
        {
            if (cameFrom.emplace(sNext, sNode).second)
            {
                waiting.push_back(sNext);
            }
        }
    }
    std::vector<std::string> way;
    for (auto step = cameFrom.find(sStart); step != cameFrom.end(); step = cameFrom.find(step->second))
    {
        way.push_back(step->second);
        if (step->second == sStart)
        {
            break;
        }
    }
    std::reverse(way.begin(), way.end());
    return way;
}

} // namespace

std::vector<CInclude> FindIncludes(const CSourceTree& tree)
{
    std::vector<CInclude> includes;
    for (const auto& [sFile, sText] : tree)
    {
        std::string_view sRest = sText;
        for (std::size_t uLine = 1; !sRest.empty(); ++uLine)
        {
            const std::size_t uEnd = std::min(sRest.find('\n'), sRest.size());
            const std::string_view sLine = SkipBlanks(sRest.substr(0, uEnd));
            sRest.remove_prefix(std::min(uEnd + 1, sRest.size()));
            if (const std::optional<std::string_view> sName = FindDirective(sLine))
            {
                const std::string sDirective(sLine.substr(0, sLine.find_last_not_of(c_sBlanks) + 1));
                AddInclude(tree, CInclude{sFile, uLine, sDirective, {}}, *sName, includes);
            }
        }
    }
    return includes;
}

std::string DescribeInclude(const CInclude& include)
{
    return include.sFile + ":" + std::to_string(include.uLine) + ": " + include.sText;
}

CGraph MakeFolderGraph(const std::vector<CInclude>& includes)
{
    return MakeGraph(includes, GetFolder);
}

CGraph MakeFileGraph(const std::vector<CInclude>& includes)
{
    return MakeGraph(includes, GetUnit);
}

std::vector<std::vector<std::string>> FindCircles(const CGraph& graph)
{
    std::vector<std::vector<std::string>> circles;
    std::set<std::string> told;
    for (const auto& [sNode, arrows] : graph)
    {
        const std::vector<std::string> circle = FindWayBack(graph, sNode);
        const bool bTold =
            std::any_of(circle.begin(), circle.end(), [&told](const std::string& s) { return told.contains(s); });
        if (!circle.empty() && !bTold)
        {
            told.insert(circle.begin(), circle.end());
            circles.push_back(circle);
        }
    }
    return circles;
}
