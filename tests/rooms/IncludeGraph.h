#pragma once

#include "tests/rooms/SourceTree.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

// An #include directive that can concern this tree.
struct CInclude
{
    std::string sFile;    // the file of the directive
    std::size_t uLine{};  // the line in that file, from 1
    std::string sText;    // the directive without the blanks around it
    std::string sTarget;  // the file of the tree that it names; empty if it names none
    bool bChecked = true; // false: it names its file by a macro, which only a compiler can expand
};

// All directives in quotation marks, those in angle brackets that name a file of the tree, and those that name a macro.
// A name is looked for beside the including file first, then from the root. A directive inside a comment of the form
// /* */ counts too.
std::vector<CInclude> FindIncludes(const CSourceTree& tree);

// "file:line: directive", for messages.
std::string DescribeInclude(const CInclude& include);

// For each node the nodes that it includes, each with one directive that does so.
using CGraph = std::map<std::string, std::map<std::string, const CInclude*>>;

// The graph between folders. Both graphs leave out includes inside one node, and point into the includes.
CGraph MakeFolderGraph(const std::vector<CInclude>& includes);

// The graph between files. A .h and a .cpp of one name are one node, named without the extension.
CGraph MakeFileGraph(const std::vector<CInclude>& includes);

// The nodes of each circle in the order of the arrows; the node that is first in the alphabet begins. Of circles that
// share a node only one is returned.
std::vector<std::vector<std::string>> FindCircles(const CGraph& graph);
