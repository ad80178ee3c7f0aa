#include "tests/fuzz/FuzzTarget.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

// A fuzzer for every build and every day: it changes the files of a folder at random, always in the same way, and hands
// them to the target. What it lacks is the knowledge of which change reached new code; the long searches are
// libFuzzer's.
//
//   DRIVER FOLDER WORDS COUNT
//
// WORDS is a dictionary in libFuzzer's form: what the targets look for, and what they must refuse.
namespace
{

constexpr std::size_t c_uMostChanges = 8;    // of one input
constexpr std::size_t c_uMostBytes = 20'000; // of one input
constexpr std::size_t c_uMostMoved = 60;     // bytes copied or removed at once
constexpr std::uint64_t c_uSeed = 20'240'229;
constexpr int c_iHexadecimal = 16;

class CMutator
{
public:
    CMutator(std::vector<std::string> seeds, std::vector<std::string> words)
        : m_Seeds(std::move(seeds)), m_Words(std::move(words))
    {
    }

    std::string MakeInput()
    {
        std::string sText = m_Seeds[Draw(m_Seeds.size())];
        for (std::size_t uChanges = Draw(c_uMostChanges) + 1; uChanges > 0; --uChanges)
        {
            Change(sText);
        }
        sText.resize(std::min(sText.size(), c_uMostBytes));
        return sText;
    }

private:
    // 0..uCount - 1; the library's distributions differ from one standard library to the next.
    std::size_t Draw(std::size_t uCount) { return uCount > 0 ? static_cast<std::size_t>(m_Random() % uCount) : 0; }

    std::size_t DrawPlace(const std::string& sText) { return Draw(sText.size() + 1); }

    void Change(std::string& sText)
    {
        enum EnumChange : std::uint8_t
        {
            Word,
            Byte,
            Remove,
            Repeat,
            Splice,
            Count
        };
        const std::size_t uPlace = DrawPlace(sText);
        switch (Draw(Count))
        {
        case Word:
            sText.replace(uPlace, Draw(2) * Draw(c_uMostChanges), m_Words[Draw(m_Words.size())]);
            break;
        case Byte:
            sText.replace(uPlace, Draw(2), 1, static_cast<char>(m_Random()));
            break;
        case Remove:
            sText.erase(uPlace, Draw(c_uMostMoved));
            break;
        case Repeat:
            sText.insert(uPlace, sText.substr(DrawPlace(sText), Draw(c_uMostMoved)));
            break;
        default:
            const std::string& sOther = m_Seeds[Draw(m_Seeds.size())];
            sText.insert(uPlace, sOther.substr(DrawPlace(sOther), Draw(c_uMostMoved)));
            break;
        }
    }

    std::vector<std::string> m_Seeds;
    std::vector<std::string> m_Words;
    std::mt19937_64 m_Random{c_uSeed};
};

std::vector<std::string> ReadSeeds(const char* sFolder)
{
    std::vector<std::filesystem::path> paths;
    for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(sFolder))
    {
        paths.push_back(entry.path());
    }
    // A folder lists its files in any order.
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> seeds;
    for (const std::filesystem::path& path : paths)
    {
        std::ifstream stream(path, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    return seeds;
}

// One line of a dictionary: "word", where \xNN stands for a byte and a backslash for the character behind it.
std::string ReadWord(const std::string& sLine)
{
    const std::size_t uEnd = sLine.rfind('"');
    std::string sWord;
    for (std::size_t u = 1; u < uEnd; ++u)
    {
        if (sLine[u] != '\\')
        {
            sWord += sLine[u];
        }
        else if (sLine[u + 1] == 'x')
        {
            sWord += static_cast<char>(std::strtoul(sLine.substr(u + 2, 2).c_str(), nullptr, c_iHexadecimal));
            u += sizeof("xNN") - 1;
        }
        else
        {
            sWord += sLine[++u];
        }
    }
    return sWord;
}

std::vector<std::string> ReadWords(const char* sFile)
{
    std::vector<std::string> words;
    std::ifstream stream(sFile);
    for (std::string sLine; std::getline(stream, sLine);)
    {
        if (sLine.starts_with('"'))
        {
            words.push_back(ReadWord(sLine));
        }
    }
    return words;
}

void Try(const std::string& sText)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(sText.data()), sText.size());
}

} // namespace

int main(int count, char** pArguments)
{
    constexpr int c_iArguments = 4;
    Require(count == c_iArguments, "usage: DRIVER FOLDER WORDS COUNT");
    const std::vector<std::string> seeds = ReadSeeds(pArguments[1]);
    Require(!seeds.empty(), "the folder holds no files");
    std::for_each(seeds.begin(), seeds.end(), Try);
    const std::vector<std::string> words = ReadWords(pArguments[2]);
    Require(!words.empty(), "the dictionary holds no words");
    CMutator mutator(seeds, words);
    const long inputs = std::strtol(pArguments[c_iArguments - 1], nullptr, 0);
    Require(inputs > 0, "the number of inputs is not above zero");
    for (long input = 0; input < inputs; ++input)
    {
        Try(mutator.MakeInput());
    }
    std::printf("%zu files and %ld changed ones without a finding\n", seeds.size(), inputs);
    return 0;
}
