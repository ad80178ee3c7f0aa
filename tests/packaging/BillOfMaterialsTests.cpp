#include "tests/packaging/FolderContents.h"
#include "tests/packaging/HandedOut.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace
{
using CNames = std::set<std::string>;

std::vector<std::string> LinesOf(const std::string& sText)
{
    std::vector<std::string> lines;
    std::istringstream stream(sText);
    for (std::string sLine; std::getline(stream, sLine);)
    {
        lines.push_back(sLine);
    }
    return lines;
}

// Every text in quotes that follows `sBegin` directly.
std::vector<std::string> QuotedAfter(const std::string& sText, const std::string& sBegin)
{
    std::vector<std::string> found;
    for (std::size_t u = sText.find(sBegin); u != std::string::npos; u = sText.find(sBegin, u + 1))
    {
        const std::size_t uWord = u + sBegin.size() + 1;
        found.push_back(sText.substr(uWord, sText.find('"', uWord) - uWord));
    }
    return found;
}

std::string First(const std::vector<std::string>& texts)
{
    return texts.empty() ? "" : texts.front();
}

// The bill of materials: one component per line.
class BillOfMaterials : public testing::Test
{
protected:
    // The line of the component that has this part; empty if none has it.
    std::string LineWithPart(const std::string& sPart) const
    {
        for (const std::string& sLine : m_lines)
        {
            if (sLine.find("\"kinetarium:part\", \"value\": \"" + sPart + "\"") != std::string::npos)
            {
                return sLine;
            }
        }
        return {};
    }
    std::string DependenciesOf(const std::string& sProgram) const
    {
        for (const std::string& sLine : m_lines)
        {
            if (sLine.find("{\"ref\": \"" + sProgram + "\"") != std::string::npos)
            {
                return sLine;
            }
        }
        return {};
    }
    // The libraries of others in the link map of a program, by file name.
    static CNames LinkedInto(const std::string& sProgram)
    {
        CNames libraries;
        for (const std::string& sLine : LinesOf(ReadFile(BuiltPrograms() / (sProgram + ".map"))))
        {
            const std::size_t uEnd = sLine.find(".a(");
            if (sLine.starts_with('/') && uEnd != std::string::npos && sLine.find("/delay-load/") == std::string::npos)
            {
                const std::string sPath = sLine.substr(0, uEnd + 2);
                libraries.insert(sPath.substr(sPath.rfind('/') + 1));
            }
        }
        return libraries;
    }

    const std::string m_sText = ReadFile(HandedOutFolder() / "licences" / "bill-of-materials.cdx.json");
    const std::vector<std::string> m_lines = LinesOf(m_sText);
};
} // namespace

TEST_F(BillOfMaterials, NamesEveryLibraryThatWasLinkedIntoAProgram)
{
    for (const std::string sProgram : {"Kinetarium", "kinetarium-headless"})
    {
        const CNames libraries = LinkedInto(sProgram);
        EXPECT_TRUE(libraries.contains("libstdc++.a"));
        for (const std::string& sLibrary : libraries)
        {
            const std::string sReference = First(QuotedAfter(LineWithPart(sLibrary), "\"bom-ref\": "));
            EXPECT_FALSE(sReference.empty()) << sLibrary;
            EXPECT_NE(DependenciesOf(sProgram + ".exe").find("\"" + sReference + "\""), std::string::npos)
                << sProgram << " " << sLibrary;
        }
    }
}

TEST_F(BillOfMaterials, NamesNoLibraryThatWasNotLinked)
{
    CNames linked = LinkedInto("Kinetarium");
    linked.merge(LinkedInto("kinetarium-headless"));
    for (const std::string& sPart : QuotedAfter(m_sText, "\"name\": \"kinetarium:part\", \"value\": "))
    {
        if (sPart.ends_with(".a"))
        {
            EXPECT_TRUE(linked.contains(sPart)) << sPart;
        }
    }
}

TEST_F(BillOfMaterials, NamesTheLibrariesWithoutObjectsOfTheProgramsThatIncludeThem)
{
    for (const char* const sFolder : {"fmt", "boost", "CLI", "nlohmann", "chart.min.js"})
    {
        EXPECT_FALSE(LineWithPart(sFolder).empty()) << sFolder;
    }
    EXPECT_EQ(DependenciesOf("Kinetarium.exe").find("\"cli11\""), std::string::npos);
    EXPECT_NE(DependenciesOf("kinetarium-headless.exe").find("\"cli11\""), std::string::npos);
    EXPECT_EQ(DependenciesOf("Kinetarium.exe").find("\"chart.js\""), std::string::npos);
    EXPECT_NE(DependenciesOf("kinetarium-headless.exe").find("\"chart.js\""), std::string::npos);
}

TEST_F(BillOfMaterials, HasNameVersionLicenceAndTextOfEachLibraryAndNoTextIsLeft)
{
    CNames texts = FilesIn(HandedOutFolder() / "licences");
    texts.erase("README.txt");
    texts.erase("bill-of-materials.cdx.json");
    texts.erase("gpl-3.txt"); // the licence that another one refers to
    const std::string sOverview = ReadFile(HandedOutFolder() / "licences" / "README.txt");
    int iLibraries = 0;
    for (const std::string& sLine : m_lines)
    {
        if (sLine.find("\"type\": \"library\"") == std::string::npos)
        {
            continue;
        }
        ++iLibraries;
        const std::string sName = First(QuotedAfter(sLine, "\"name\": "));
        const std::string sVersion = First(QuotedAfter(sLine, "\"version\": "));
        const std::string sText = First(QuotedAfter(sLine, "\"name\": \"kinetarium:licence\", \"value\": "));
        EXPECT_FALSE(sName.empty() || sVersion.empty() || First(QuotedAfter(sLine, "\"expression\": ")).empty())
            << sLine;
        EXPECT_NE(sOverview.find(sName + ", version " + sVersion + "\r\n"), std::string::npos) << sLine;
        EXPECT_FALSE(ReadFile(HandedOutFolder() / sText).empty()) << sText;
        texts.erase(sText.substr(sText.rfind('/') + 1));
    }
    EXPECT_GT(iLibraries, 0);
    EXPECT_EQ(texts, CNames{});
}

TEST_F(BillOfMaterials, TellsTheVersionOfKinetarium)
{
    const auto versions = QuotedAfter(m_sText, "\"version\": ");
    EXPECT_EQ(std::count(versions.begin(), versions.end(), KINETARIUM_VERSION), 4);
    EXPECT_EQ(First(QuotedAfter(m_sText, "\"bomFormat\": ")), "CycloneDX");
}
