// Input: the text of a comment, then of other pragmas made from it. Every answer is compared with
// that of a plain second implementation.
#include "Require.h"
#include "TextFromBytes.h"

#include <zt_orvex/pragma/Pragma.h>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

using namespace zt::orvex;
using fuzz::require;

namespace {

struct PlainWord {
    bool isRefused = false;
    std::u16string text; // empty if there is none
};

bool isLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

PlainWord plainWord(std::u16string_view text) {
    if (text.size() < 2 || text[1] != u'#') return {true, u""};
    std::size_t at = 2;
    while (at < text.size() && (text[at] == u' ' || text[at] == u'\t'))
        ++at;
    PlainWord word;
    if (at == text.size() || !isLetter(text[at])) return word;
    for (; at < text.size(); ++at) {
        if (!isLetter(text[at]) && !isDigit(text[at]) && text[at] != u'_') break;
        word.text += text[at];
    }
    return word;
}

struct Row {
    const char16_t* word;
    int kind;
};
constexpr Row ROWS[] = {{u"codegen", 0},      {u"zel", 1},           {u"function", 4},
                        {u"internal", 5},     {u"vun", 6},           {u"ok", 8},
                        {u"TestStandard", 9}, {u"UNRECOGNIZED", 10}, {u"obfuscate", 7}};

int plainKind(const std::u16string& word) {
    for (const Row& row : ROWS)
        if (word == row.word) return row.kind;
    return word.rfind(u"TestStandard", 0) == 0 ? 9 : 10;
}

std::u16string plainTrimmed(std::u16string arguments) {
    const auto isSeparator = [](char16_t unit) {
        return unit == u' ' || unit == u'\t' || unit == u',';
    };
    std::size_t dropped = 0;
    while (!arguments.empty() && isSeparator(arguments.front())) {
        arguments.erase(0, 1);
        ++dropped;
    }
    std::u16string cut;
    while (!arguments.empty() && isSeparator(arguments.back())) {
        cut.insert(cut.begin(), arguments.back());
        arguments.pop_back();
    }
    // As many as were dropped at the beginning stay at the end.
    return arguments.empty() ? u"" : arguments + cut.substr(0, dropped);
}

std::u16string_view viewOf(std::u16string_view text) { return text; }

void checkKinds(const std::u16string& word) {
    require(static_cast<int>(pragmaKindFromString(word)) == plainKind(word), "the word's kind");
    const auto value = static_cast<std::uint8_t>(word.size() % 16);
    try {
        const std::u16string name = pragmaKindToString(static_cast<PragmaKind>(value));
        require(plainKind(name) == value, "a kind's word has that kind");
    } catch (const std::out_of_range&) {
        require(value == 2 || value == 3 || value > 10, "only these have no word");
    }
}

void checkPragma(const Pragma& pragma, const std::u16string& text, const std::u16string& word,
                 unsigned position) {
    const std::size_t end = text.find(word) + word.size();
    require(static_cast<int>(pragma.getKind()) == plainKind(word), "the kind");
    require(pragma.getSourcePosition() == position, "the position");
    require(viewOf(pragma.getSourceText()) == text, "the whole text");
    require(viewOf(pragma.getPragmaName()) == word, "the word");
    require(pragma.getPragmaText() == text.substr(0, end), "the text up to the word");
    require(viewOf(pragma.getArgumentsText()) == text.substr(end), "the text after the word");
    require(viewOf(pragma.getTrimmedArgumentsText()) == plainTrimmed(text.substr(end)), "trimmed");

    std::ostringstream printed;
    printed << pragma;
    const std::u16string kind = pragmaKindToString(pragma.getKind());
    require(printed.str() == "Pragma<Pos = " + std::to_string(position) + ", Kind = %#" +
                                 fuzz::plainUtf8(kind) + ", Text = " + fuzz::plainUtf8(text) + ">",
            "the printed form");
}

void checkParsing(const std::u16string& text, unsigned position) {
    const PlainWord word = plainWord(text);
    try {
        const boost::optional<Pragma> parsed = parsePragma(text, position);
        require(!word.isRefused, "the text is accepted");
        require(parsed.has_value() == !word.text.empty(), "a pragma if there is a word");
        if (!parsed) return;
        checkPragma(*parsed, text, word.text, position);
        Pragma source(*parsed);
        const Pragma target(std::move(source));
        checkPragma(target, text, word.text, position);
        checkPragma(source, text, word.text, position); // moving copies
    } catch (const std::invalid_argument& error) {
        require(word.isRefused && std::string_view(error.what()) ==
                                      "Pragmas must be O_COMMENTS that begin with `%#`.",
                "only such a text is refused");
    }
}

/// The constructor checks nothing.
void checkMadeByHand(const std::u16string& text, unsigned offset) {
    const Pragma pragma(PragmaKind::ok, text, 0, offset);
    require(pragma.getPragmaText() == text.substr(0, offset), "up to the offset");
    try {
        require(viewOf(pragma.getArgumentsText()) == text.substr(offset), "from the offset on");
        pragma.getTrimmedArgumentsText();
        require(offset <= text.size(), "the offset is in the text");
    } catch (const std::out_of_range&) {
        require(offset > text.size(), "only such an offset is refused");
    }
    try {
        require(viewOf(pragma.getPragmaName()) == plainWord(text).text, "the word");
    } catch (const std::invalid_argument&) {
        require(plainWord(text).isRefused, "only such a text is refused");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = fuzz::unitsFrom(data, size);
    const auto number = static_cast<unsigned>(text.empty() ? 0 : text.back() * 0x10001U);
    checkParsing(text, number);
    checkParsing(u"%#" + text, number);
    checkMadeByHand(text, text.empty() ? 1 : text.back() % 64);
    checkKinds(text);
    return 0;
}
