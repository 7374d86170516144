#include "Programs.h"
#include "UnreadablePages.h"
#include "testing/RandomProgram.h"

#include "source/SourceLimit.h"
#include "syntax/Limits.h"
#include "syntax/Printer.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <gtest/gtest.h>

#include <utility>

namespace ostrel {
namespace {

using zt::orvex::NodeView;
using zt::orvex::testing::Random;
using zt::orvex::testing::RandomProgram;
using zt::orvex::testing::rounds;
using zt::orvex::testing::roundsToRun;

/// Walks the whole tree, asks it what a report would ask, and prints it.
void use(const ParsedFile& file) {
    std::size_t last = 0;
    for (const Diagnostic& diagnostic : file.diagnostics) {
        ASSERT_LE(last, diagnostic.place.offset);
        last = diagnostic.place.offset;
        ASSERT_LE(diagnostic.place.line, file.source.lineCount());
        ASSERT_FALSE(diagnostic.message.empty());
    }
    ASSERT_LE(file.tree->height(), MAX_TREE_HEIGHT);
    zt::orvex::forEachNodeIn(file.root, [&](const NodeView& node) {
        ASSERT_LE(file.tree->beginOffset(node), file.tree->endOffset(node));
        ASSERT_LE(file.tree->endOffset(node), file.source.size());
        if (node.getKind() != zt::orvex::NodeKind::Identifier) return;
        const auto symbol = file.tree->getIdentifierSymbol(node.node);
        ASSERT_EQ(file.tree->symbolName(symbol), file.tree->getIdentifierName(node.node));
    });
    for (const Construct& construct : file.constructs)
        ASSERT_LT(construct.scope, file.scopes.size());
    printSource(*file.tree);
}

std::string repeat(const std::string& piece, std::size_t size) {
    std::string text;
    while (text.size() < size)
        text += piece;
    return text;
}

/// Drops, doubles or swaps characters of a text, or inserts a token.
std::string mutate(Random& random, std::string text) {
    static const std::vector<std::string> TOKENS{
        "(",     ")",     "[",   "]", "{",    "}",      "'",           "\"",       "end",
        "\n",    "=",     "...", "%", "%{\n", "\n%}\n", "function ",   "if ",      "class ",
        "else ", "case ", ",",   ";", ".",    "@",      "arguments\n", "methods\n"};
    for (std::size_t i = random.between(1, 4); i > 0 && !text.empty(); --i) {
        const std::size_t at = random.below(text.size());
        switch (random.below(4)) {
        case 0:
            text.erase(at, random.between(1, 3));
            break;
        case 1:
            text.insert(at, 1, text[at]);
            break;
        case 2:
            std::swap(text[at], text[random.below(text.size())]);
            break;
        default:
            text.insert(at, random.pick(TOKENS));
        }
    }
    return text;
}

TEST(ParsedFileRobustness, EmptyFileIsAnEmptyProgram) {
    for (const char* text : {"", "\n", "  ", "% c", "%{\n%}", "\r\n\r\n"}) {
        const ParsedFile file = testing::parse(text);
        EXPECT_FALSE(file.hasErrors()) << text;
        EXPECT_EQ(testing::dumpNodes(file), "") << text;
        EXPECT_EQ(file.root.getKind(), zt::orvex::NodeKind::Program);
    }
}

TEST(ParsedFileRobustness, InvalidUtf8IsOneErrorAtItsPlace) {
    const ParsedFile file = testing::parse("x = 1;\n\xC3\xA9 \xFF;\n");
    EXPECT_FALSE(file.isUtf8);
    EXPECT_EQ(testing::dumpErrors(file), "2:3: the file is not UTF-8 from here on\n");
    EXPECT_EQ(testing::dumpNodes(file), "");
    EXPECT_TRUE(testing::parse("x = '\xC3\xA9';").isUtf8);
}

TEST(ParsedFileRobustness, TextTooLargeForOffsetsIsOneErrorAndIsNotRead) {
    EXPECT_FALSE(isSourceTooLarge(MAX_SOURCE_SIZE));
    EXPECT_TRUE(isSourceTooLarge(MAX_SOURCE_SIZE + 1));
    const testing::UnreadablePages pages(MAX_SOURCE_SIZE + 1);
    ASSERT_NE(pages.text().data(), nullptr);
    const ParsedFile file = testing::parse(pages.text());
    EXPECT_EQ(testing::dumpErrors(file), "1:1: the file is larger than 1 GiB\n");
    EXPECT_EQ(testing::dumpNodes(file), "");
}

TEST(ParsedFileRobustness, MutatedProgramsAreParsedToTheEnd) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t i = 0; i < roundsToRun(3000); ++i) {
        const std::string source = mutate(random, RandomProgram(random).program());
        SCOPED_TRACE(source);
        use(testing::parse(source));
        if (HasFatalFailure()) return;
    }
}

TEST(ParsedFileRobustness, RandomTokensAreParsedToTheEnd) {
    static const std::vector<std::string> TOKENS{
        "if",     "end",         "else",      "for",    "k",        "=",          "(",
        ")",      "[",           "]",         "{",      "}",        ";",          ",",
        "\n",     "\n",          "'",         "\"",     "function", "class",      "x",
        "1",      "+",           "-",         ":",      "@",        "try",        "catch",
        "switch", "case",        "otherwise", "parfor", "spmd",     "...\n",      "%",
        "\n%{\n", "\n%}\n",      "while",     "global", "methods",  "properties", "arguments",
        "events", "enumeration", "~",         "!",      ".",        "?",          "0x",
        "elseif", "return",      "<",         "&",      "'a'",      "\"b\"",      "ans"};
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t i = 0; i < roundsToRun(3000); ++i) {
        std::string source;
        for (std::size_t j = random.below(60); j > 0; --j) {
            source += random.pick(TOKENS) + (random.oneIn(3) ? "" : " ");
        }
        SCOPED_TRACE(source);
        use(testing::parse(source));
        if (HasFatalFailure()) return;
    }
}

TEST(ParsedFileRobustness, RandomBytesAreParsedToTheEnd) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t i = 0; i < roundsToRun(2000); ++i) {
        std::string source;
        const std::size_t limit = random.oneIn(4) ? 256 : 128;
        for (std::size_t j = random.below(200); j > 0; --j) {
            source += static_cast<char>(random.below(limit));
        }
        use(testing::parse(source));
        if (HasFatalFailure()) return;
    }
}

TEST(ParsedFileRobustness, TenMegabytesOfBracketsAreOneError) {
    const std::string error = "1:2001: the expression is nested deeper than 2000 levels\n";
    EXPECT_EQ(testing::errors(std::string(10'000'000, '(')), error);
    EXPECT_EQ(testing::errors(std::string(100'000, '[')), error);
    EXPECT_EQ(testing::errors(std::string(100'000, '{')), error);
}

TEST(ParsedFileRobustness, HighestTreeCanBeWalkedAndPrinted) {
    std::string source;
    for (std::size_t i = 0; i < MAX_BLOCK_NESTING; ++i)
        source += "if a, elseif b\n";
    source += "y = " + repeat("-", MAX_EXPRESSION_HEIGHT - 1) + "a\n";
    source += "y = " + std::string(MAX_EXPRESSION_HEIGHT - 1, '(') + "a" +
              std::string(MAX_EXPRESSION_HEIGHT - 1, ')') + "\n";
    for (std::size_t i = 0; i < MAX_BLOCK_NESTING; ++i)
        source += "end\n";
    const ParsedFile file = testing::parse(source);
    EXPECT_EQ(testing::dumpErrors(file), "");
    EXPECT_GT(file.tree->height(), MAX_EXPRESSION_HEIGHT + 2 * MAX_BLOCK_NESTING);
    use(file);
}

TEST(ParsedFileRobustness, LongTextsFullOfErrorsTakeLinearTime) {
    // In quadratic time, the test would hang.
    const std::size_t size = rounds(100'000);
    for (const char* piece : {"x = [1, 2\n",
                              "[* * 2\n",
                              "[\n",
                              "(\n",
                              "if 1\n",
                              "end\n",
                              "function f\n",
                              "x = '\n",
                              "[ ...\n",
                              "x = [1, 2\nf(1)\n",
                              "%{\n",
                              "'",
                              "a -b\n",
                              "class A\n",
                              "switch x\ny\n",
                              "function f\nend\nend\n",
                              "function f\nend\nx = 1;\n",
                              "{@(a)",
                              "x = (1 + [2\n",
                              "),",
                              "1:",
                              "-",
                              "a@",
                              "a.",
                              "a(1).b{2}",
                              "a'",
                              "!a\n",
                              "case 1\n",
                              "[a b] = "}) {
        const ParsedFile file = testing::parse(repeat(piece, size));
        EXPECT_LE(file.tree->height(), MAX_TREE_HEIGHT) << piece;
    }
}

TEST(ParsedFileRobustness, LaterWritesDoNotMakeParsingQuadratic) {
    std::string source;
    for (std::size_t i = 0; i < 20000; ++i)
        source += "a" + std::to_string(i) + " -b\n";
    for (std::size_t i = 0; i < 20000; ++i)
        source += "a" + std::to_string(i) + " = 1;\n";
    const ParsedFile file = testing::parse(source);
    EXPECT_FALSE(file.hasErrors());
    EXPECT_EQ(file.scopes[0].universe.size(), 20000U);
}

} // namespace
} // namespace ostrel
