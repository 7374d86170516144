// What the errors of programs with small mistakes look like.
#include "Programs.h"
#include "testing/Random.h"
#include "testing/RandomProgram.h"

#include "source/UnsafeCharacters.h"
#include "source/Utf8.h"
#include "syntax/Lexer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {
namespace {

using zt::orvex::testing::Random;
using zt::orvex::testing::RandomProgram;
using zt::orvex::testing::rounds;

std::vector<std::string> examplePrograms() {
    std::vector<std::string> texts;
    for (const auto& entry : std::filesystem::directory_iterator(OSTREL_PROGRAMS_FOLDER)) {
        if (entry.path().extension() != ".ost") continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        texts.emplace_back(std::istreambuf_iterator<char>(stream),
                           std::istreambuf_iterator<char>());
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

/// The source in pieces that can be deleted, doubled and swapped: its tokens, each with the blanks
/// and comments before it.
std::vector<std::string> tokensOf(const std::string& source) {
    const SourceText text = *SourceText::fromUtf8(source);
    Lexer lexer(text);
    std::vector<std::string> tokens;
    for (std::size_t begin = 0; begin < text.size(); begin = lexer.position()) {
        const Token token = lexer.next();
        tokens.push_back(toUtf8(std::u16string_view(text.text()).substr(begin, token.end - begin)));
    }
    return tokens;
}

/// Deletes, doubles or swaps a few pieces: tokens, or characters.
template <typename Pieces>
void mutate(Random& random, Pieces& pieces) {
    for (std::size_t i = random.between(1, 4); i > 0 && !pieces.empty(); --i) {
        const auto at = pieces.begin() + static_cast<std::ptrdiff_t>(random.below(pieces.size()));
        switch (random.below(3)) {
        case 0:
            pieces.erase(at);
            break;
        case 1: {
            const auto piece = *at;
            pieces.insert(at, piece);
            break;
        }
        default:
            std::swap(*at, pieces[random.below(pieces.size())]);
        }
    }
}

/// Inserts what a terminal would obey, or what another language would have.
void insertStrangeText(Random& random, std::string& source) {
    static const std::vector<std::string> TEXTS{"\x1B[2J",
                                                "\x07",
                                                "\x7F",
                                                "\xC2\x9B",
                                                "\xE2\x80\xAE",
                                                "\xE2\x80\xA8",
                                                "\t",
                                                "\r",
                                                "0x12G4",
                                                "1e+",
                                                " += 1",
                                                "++",
                                                " != ",
                                                "else if ",
                                                "\nend\n",
                                                "\n  end",
                                                "\nparfro k = 1:3\n",
                                                "\nwhlie a\n",
                                                "'",
                                                "\"",
                                                "\n%{\n",
                                                "(",
                                                "[",
                                                "} "};
    std::size_t at = random.below(source.size() + 1);
    // Between code points, so that the text stays UTF-8.
    while (at < source.size() && (static_cast<unsigned char>(source[at]) & 0xC0U) == 0x80U)
        ++at;
    source.insert(at, random.pick(TEXTS));
}

std::string mutated(Random& random, const std::string& source) {
    std::string text;
    if (random.oneIn(2)) {
        std::vector<std::string> tokens = tokensOf(source);
        mutate(random, tokens);
        for (const std::string& token : tokens)
            text += token;
    } else {
        std::u32string characters;
        for (std::size_t at = 0; at < source.size();) {
            char32_t character = 0;
            at += readCodePoint(source, at, character);
            characters += character;
        }
        mutate(random, characters);
        for (const char32_t character : characters)
            appendUtf8(text, character);
    }
    if (random.oneIn(2)) insertStrangeText(random, text);
    return text;
}

bool isSafeLine(const std::string& utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        char32_t character = 0;
        const std::size_t length = readCodePoint(utf8, at, character);
        if (length == 0 || isUnsafeToShow(character)) return false;
        at += length;
    }
    return true;
}

void checkErrors(const ParsedFile& file) {
    std::size_t last = 0;
    for (const Diagnostic& each : file.diagnostics) {
        const Place& place = each.place;
        ASSERT_LE(last, place.offset) << each.message;
        last = place.offset;
        ASSERT_LE(place.offset + place.length, file.source.size()) << each.message;
        const Position end = file.source.position(place.offset + place.length);
        ASSERT_EQ(end.line, place.endLine) << each.message;
        ASSERT_EQ(end.column, place.endColumn) << each.message;
        ASSERT_FALSE(each.message.empty());
        ASSERT_TRUE(isSafeLine(each.message)) << each.message;
        ASSERT_TRUE(isSafeLine(each.help)) << each.message;
    }
}

TEST(ParserMutation, ErrorsAreInOrderInsideTheTextAndSafeToShow) {
    Random random;
    SCOPED_TRACE(random.describe());
    const std::vector<std::string> programs = examplePrograms();
    ASSERT_FALSE(programs.empty());
    std::size_t withErrors = 0;
    for (std::size_t i = rounds(30'000); i > 0; --i) {
        const std::string base =
            random.oneIn(3) ? RandomProgram(random).program() : random.pick(programs);
        const std::string source = mutated(random, base);
        const ParsedFile file = testing::parse(source);
        checkErrors(file);
        if (HasFatalFailure()) {
            ADD_FAILURE() << source;
            return;
        }
        if (file.hasErrors()) ++withErrors;
    }
    EXPECT_GT(withErrors, rounds(30'000) / 3);
}

} // namespace
} // namespace ostrel
