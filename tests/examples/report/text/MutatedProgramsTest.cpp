#include "HostileTexts.h"
#include "RunReport.h"

#include "frontend/ParsedFile.h"
#include "report/analysis/Analyze.h"
#include "report/text/TextReport.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace ostrel::report::testing {

namespace {

using zt::orvex::testing::Random;
using zt::orvex::testing::roundsToRun;

/// The texts of the example programs, in the order of their names.
std::vector<std::string> programs() {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(OSTREL_PROGRAMS_FOLDER)) {
        if (entry.path().extension() == ".ost") paths.push_back(entry.path().string());
    }
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> texts;
    for (const std::string& path : paths)
        texts.push_back(readFile(path));
    return texts;
}

/// Words and single characters that, put together, give the text again.
std::vector<std::string> tokensOf(const std::string& text) {
    const auto isOfWord = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
    std::vector<std::string> tokens;
    for (const char c : text) {
        const bool continues = !tokens.empty() && isOfWord(c) && isOfWord(tokens.back().back());
        if (continues)
            tokens.back() += c;
        else
            tokens.emplace_back(1, c);
    }
    return tokens;
}

std::string joined(const std::vector<std::string>& tokens) {
    std::string text;
    for (const std::string& token : tokens)
        text += token;
    return text;
}

void changeToken(Random& random, std::vector<std::string>& tokens) {
    static const std::vector<std::string> WORDS{
        "end",   "\n",     "parfor ",   "spmd ",   "function ", "ans",     "eval",     "load(x)",
        "break", "return", "=",         "(",       ")",         "[",       "]",        "'",
        "\"",    "%",      "%{\n",      "\n%}",    "%#",        "...",     ",",        "else",
        "try\n", "catch",  "while 1\n", "for i=x", "if x",      "global ", "class A\n"};
    const std::size_t at = random.below(tokens.size());
    switch (random.below(5)) {
    case 0:
        tokens[at].clear();
        break;
    case 1:
        tokens[at] += tokens[at];
        break;
    case 2:
        std::swap(tokens[at], tokens[random.below(tokens.size())]);
        break;
    case 3:
        tokens[at] = tokens[random.below(tokens.size())];
        break;
    default:
        tokens[at] += random.pick(WORDS);
    }
}

void changeByte(Random& random, std::string& text) {
    const std::size_t at = random.below(text.size());
    switch (random.below(5)) {
    case 0:
        text.erase(at, random.between(1, 3));
        break;
    case 1:
        text[at] = static_cast<char>(random.below(128));
        break;
    case 2:
        text[at] = static_cast<char>(random.below(256));
        break;
    case 3:
        std::swap(text[at], text[random.below(text.size())]);
        break;
    default:
        text.insert(at, random.pick(HOSTILE_TEXTS));
    }
}

std::string mutated(Random& random, const std::string& text) {
    std::vector<std::string> tokens = tokensOf(text);
    for (std::size_t i = random.below(6); i > 0; --i)
        changeToken(random, tokens);
    std::string result = joined(tokens);
    for (std::size_t i = random.below(4); i > 0 && !result.empty(); --i)
        changeByte(random, result);
    return result;
}

TEST(MutatedPrograms, HaveATextReportWithoutControlCharacters) {
    const std::vector<std::string> originals = programs();
    ASSERT_FALSE(originals.empty());
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t i = 0; i < roundsToRun(3000); ++i) {
        const std::string text = mutated(random, random.pick(originals));
        const std::string path = "a" + std::string(random.pick(HOSTILE_TEXTS)) + ".ost";
        Report report;
        report.files.push_back(analyze(parseOstrel(path, text)));
        for (const Detail detail : {Detail::Full, Detail::Quiet}) {
            std::ostringstream out;
            writeTextReport(out, report, {false, random.below(150)}, detail);
            ASSERT_EQ(unsafeCharacterIn(out.str()), "") << text << "\n----\n" << out.str();
        }
    }
}

} // namespace

} // namespace ostrel::report::testing
