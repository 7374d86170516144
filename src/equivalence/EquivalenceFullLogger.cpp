#include <zt_orvex/equivalence/EquivalenceFullLogger.h>

#include "support/Utf16ToUtf8.h"

#include <cstddef>
#include <list>
#include <utility>

namespace zt::orvex::internal {

namespace {

/// The stream of one level: the actual type of every stream on the stack. Its text is the pieces,
/// followed by what the stream holds. When a level inside this one fails, what has been written
/// here so far and the failed level's text become pieces.
///
/// Inserting the failed level's text into the stream instead would copy the path to a mismatch at
/// each level of the path, which is quadratic in the depth.
///
/// A stream that runs out of memory may have kept the beginning of what was written. `length` tells
/// how much of it counts, so that an operation that throws leaves no trace.
class Level : public std::ostringstream {
public:
    Level() { exceptions(badbit); }

    /// Has no effect if it throws.
    void append(const std::string& addition) {
        clear(); // a failure of the past
        seekp(length);
        write(addition.data(), static_cast<std::streamsize>(addition.size()));
        length += static_cast<std::streamsize>(addition.size());
    }

    /// Ends this level with `verdict`, and moves its text into the parent, whose line it ends first.
    /// Has no effect if it throws.
    void failInto(Level& parent, const std::string& verdict) {
        std::list<std::string> parentText{parent.streamText() + "\n"};
        std::list<std::string> ownText{streamText() + verdict};
        parent.str(std::string());
        parent.length = 0;
        parent.pieces.splice(parent.pieces.end(), parentText);
        parent.pieces.splice(parent.pieces.end(), pieces);
        parent.pieces.splice(parent.pieces.end(), ownText);
    }

    std::string getText() const {
        std::string text;
        for (const std::string& piece : pieces)
            text += piece;
        return text + streamText();
    }

private:
    std::string streamText() const { return str().substr(0, static_cast<std::size_t>(length)); }

    std::list<std::string> pieces;
    std::streamsize length = 0;
};

Level& asLevel(std::ostringstream& log) { return static_cast<Level&>(log); }

std::string matchingStrings(std::u16string_view first, std::u16string_view second) {
    return "Matching strings [" + utf16ToUtf8(first) + "] and [" + utf16ToUtf8(second) + "]";
}

/// As a stream inserts it, which depends on the global locale.
std::string toText(unsigned number) {
    std::ostringstream stream;
    stream.exceptions(std::ios_base::badbit);
    stream << number;
    return stream.str();
}

} // namespace

EquivalenceFullLogger::EquivalenceFullLogger() { clear(); }
EquivalenceFullLogger::~EquivalenceFullLogger() = default;

void EquivalenceFullLogger::clear() {
    std::vector<std::unique_ptr<std::ostringstream>> fresh;
    fresh.push_back(std::make_unique<Level>());
    logStack = std::move(fresh);
    nestingDepth = 0;
}

// Head lines are left unfinished: doneMatching decides how each one ends.

void EquivalenceFullLogger::startNewMatch() {}

void EquivalenceFullLogger::beginMatching(const std::string& first, const std::string& second) {
    openLevel("Matching " + first + " against " + second);
}

// The overloads share only functions that aren't virtual: a subclass that overrides one of them
// must not hear of calls to the other.

void EquivalenceFullLogger::beginMatchingStrings(std::u16string_view first,
                                                 std::u16string_view second) {
    openLevel(matchingStrings(first, second));
}

void EquivalenceFullLogger::beginMatchingStrings(boost::basic_string_ref<char16_t> first,
                                                 boost::basic_string_ref<char16_t> second) {
    openLevel(matchingStrings({first.data(), first.size()}, {second.data(), second.size()}));
}

void EquivalenceFullLogger::beginMatchingRange() { openLevel("Matching boost::iterator_range"); }

void EquivalenceFullLogger::beginMatchingIntroductionNodes() {
    openLevel("Matching introduction nodes");
}

void EquivalenceFullLogger::beginMatchingMemoryAddressesOfIntroductionNodes() {
    openLevel("Matching memory addresses of introduction nodes");
}

void EquivalenceFullLogger::log(const char* message) {
    asLevel(currentLog()).append(indent() + "-> " + message + "\n");
}

void EquivalenceFullLogger::logRangeIndex(unsigned index) {
    asLevel(currentLog())
        .append(indent() + "-> Matching nodes at index " + toText(index) +
                " of boost::iterator_range\n");
}

void EquivalenceFullLogger::logMismatchedNodes(const std::string&, const std::string&, NodeKind,
                                               NodeKind, unsigned, unsigned) {
    log("Node kinds do not match");
}

void EquivalenceFullLogger::logMismatchedOptionals(bool, const std::string&, NodeKind, unsigned) {
    log("boost::optionals do not match (one is empty, the other is not)");
}

void EquivalenceFullLogger::logMismatchedIntroductionNodes(
    const std::string& firstIdentifier, const std::string& firstIntroductionNode,
    const std::string& secondIdentifier, const std::string& secondIntroductionNode) {
    const std::string margin = indent();
    asLevel(currentLog())
        .append(margin + "Introduction nodes do not match\n" + margin +
                "    Identifier in first tree:         " + firstIdentifier + "\n" + margin +
                "    Introduction node in first tree:  " + firstIntroductionNode + "\n" + margin +
                "    Identifier in second tree:        " + secondIdentifier + "\n" + margin +
                "    Introduction node in second tree: " + secondIntroductionNode + "\n");
}

void EquivalenceFullLogger::doneMatching(bool matched) {
    Level& level = asLevel(currentLog());
    Level& parent = asLevel(*logStack[nestingDepth - 1]);
    if (matched) {
        parent.append(" - OK\n");
    } else {
        level.failInto(parent, indent() +
                                   "-> NODES DO NOT MATCH < < < < < < < < < < < < < < < < < < < < "
                                   "\n");
    }
    endNested();
}

std::string EquivalenceFullLogger::getLog() const { return asLevel(currentLog()).getText(); }

void EquivalenceFullLogger::openLevel(const std::string& head) {
    const std::string line = indent() + head;
    beginNested();
    try {
        asLevel(*logStack[nestingDepth - 1]).append(line);
    } catch (...) {
        endNested();
        throw;
    }
}

void EquivalenceFullLogger::beginNested() {
    logStack.push_back(std::make_unique<Level>());
    ++nestingDepth;
}

void EquivalenceFullLogger::endNested() {
    logStack.pop_back();
    --nestingDepth;
}

std::ostringstream& EquivalenceFullLogger::currentLog() const { return *logStack.back(); }

std::string EquivalenceFullLogger::indent() const {
    constexpr std::size_t BLANKS_PER_LEVEL = 4;
    return std::string(nestingDepth * BLANKS_PER_LEVEL, ' ');
}

} // namespace zt::orvex::internal
