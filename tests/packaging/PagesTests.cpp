#include "tests/packaging/FolderContents.h"
#include "tests/packaging/HandedOut.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

// Reads the pages of the package as far as needed to follow their links. They are made by a program, so every attribute
// has double quotes.

namespace
{
// The values of an attribute, such as href, in the order of the page.
std::vector<std::string> ValuesOf(const std::string& sPage, const std::string& sAttribute)
{
    std::vector<std::string> values;
    const std::string sBegin = " " + sAttribute + "=\"";
    for (std::size_t u = sPage.find(sBegin); u != std::string::npos; u = sPage.find(sBegin, u))
    {
        u += sBegin.size();
        values.push_back(sPage.substr(u, sPage.find('"', u) - u));
    }
    return values;
}

// The tags that begin with this name, each up to its end.
std::vector<std::string> TagsOf(const std::string& sPage, const std::string& sName)
{
    std::vector<std::string> tags;
    const std::string sBegin = "<" + sName + " ";
    for (std::size_t u = sPage.find(sBegin); u != std::string::npos; u = sPage.find(sBegin, u + 1))
    {
        tags.push_back(sPage.substr(u, sPage.find('>', u) - u));
    }
    return tags;
}

bool IsLocal(const std::string& sLink)
{
    return sLink.find("://") == std::string::npos && !sLink.starts_with("mailto:");
}

class Pages : public testing::Test
{
protected:
    Pages()
    {
        for (const std::string& sFile : FilesIn(m_folder))
        {
            if (sFile.ends_with(".html"))
            {
                m_pages.insert(sFile);
            }
        }
    }
    // Fails unless the file exists and, behind a '#', one of its elements has that name.
    void ExpectToLeadSomewhere(const std::string& sPage, const std::string& sLink) const
    {
        const std::size_t uMark = sLink.find('#');
        const std::string sFile = uMark == 0 ? sPage : sLink.substr(0, uMark);
        EXPECT_TRUE(std::filesystem::is_regular_file(m_folder / sFile)) << sPage << ": " << sLink;
        if (uMark != std::string::npos)
        {
            const std::vector<std::string> names = ValuesOf(ReadFile(m_folder / sFile), "id");
            EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).count(sLink.substr(uMark + 1)), 1U)
                << sPage << ": " << sLink;
        }
    }

    const std::filesystem::path m_folder = HandedOutFolder() / "guide";
    std::set<std::string> m_pages;
};
} // namespace

TEST_F(Pages, EveryLocalLinkLeadsSomewhere)
{
    EXPECT_EQ(m_pages, (std::set<std::string>{"changelog.html", "experiments.html", "user-guide.html"}));
    for (const std::string& sPage : m_pages)
    {
        for (const std::string& sLink : ValuesOf(ReadFile(m_folder / sPage), "href"))
        {
            if (IsLocal(sLink))
            {
                ExpectToLeadSomewhere(sPage, sLink);
            }
        }
    }
}

TEST_F(Pages, EveryPictureIsThereAndHasAText)
{
    std::set<std::string> shown;
    for (const std::string& sPage : m_pages)
    {
        for (const std::string& sTag : TagsOf(ReadFile(m_folder / sPage), "img"))
        {
            const std::vector<std::string> sources = ValuesOf(sTag, "src");
            ASSERT_EQ(sources.size(), 1U) << sPage << ": " << sTag;
            ExpectToLeadSomewhere(sPage, sources.front());
            shown.insert(sources.front());
            const std::vector<std::string> texts = ValuesOf(sTag, "alt");
            ASSERT_EQ(texts.size(), 1U) << sPage << ": " << sTag;
            EXPECT_FALSE(texts.front().empty()) << sPage << ": " << sTag;
        }
    }
    for (const std::string& sFile : FilesIn(m_folder / "images"))
    {
        EXPECT_TRUE(shown.contains("images/" + sFile)) << sFile << " is on no page";
    }
    EXPECT_FALSE(shown.empty());
}

TEST_F(Pages, NothingIsLoadedFromElsewhere)
{
    for (const std::string& sPage : m_pages)
    {
        const std::string sText = ReadFile(m_folder / sPage);
        for (const std::string& sLink : ValuesOf(sText, "src"))
        {
            EXPECT_TRUE(IsLocal(sLink)) << sPage << ": " << sLink;
        }
        EXPECT_TRUE(TagsOf(sText, "link").empty()) << sPage;
        EXPECT_EQ(sText.find("<script"), std::string::npos) << sPage;
    }
}
