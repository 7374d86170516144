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
struct Level : std::ostringstream {
    void finishPiece() {
        pieces.push_back(str());
        str(std::string());
    }

    void adopt(Level& failed) {
        finishPiece();
        failed.finishPiece();
        pieces.splice(pieces.end(), failed.pieces);
    }

    std::string getText() const {
        std::string text;
        for (const std::string& piece : pieces)
            text += piece;
        return text + str();
    }

    std::list<std::string> pieces;
};

Level& asLevel(std::ostringstream& log) { return static_cast<Level&>(log); }

void writeStringsHead(std::ostream& log, std::u16string_view first, std::u16string_view second) {
    log << "Matching strings [" << utf16ToUtf8(first) << "] and [" << utf16ToUtf8(second) << "]";
}

} // namespace

EquivalenceFullLogger::EquivalenceFullLogger() { clear(); }
EquivalenceFullLogger::~EquivalenceFullLogger() = default;

void EquivalenceFullLogger::clear() {
    nestingDepth = 0;
    logStack.clear();
    logStack.push_back(std::make_unique<Level>());
}

// Head lines are left unfinished: doneMatching decides how each one ends.

void EquivalenceFullLogger::startNewMatch() {}

void EquivalenceFullLogger::beginMatching(const std::string& first, const std::string& second) {
    currentLog() << indent() << "Matching " << first << " against " << second;
    beginNested();
}

// The overloads share only a function that isn't virtual: a subclass that overrides one of them
// must not hear of calls to the other.

void EquivalenceFullLogger::beginMatchingStrings(std::u16string_view first,
                                                 std::u16string_view second) {
    writeStringsHead(currentLog() << indent(), first, second);
    beginNested();
}

void EquivalenceFullLogger::beginMatchingStrings(boost::basic_string_ref<char16_t> first,
                                                 boost::basic_string_ref<char16_t> second) {
    writeStringsHead(currentLog() << indent(), std::u16string_view(first.data(), first.size()),
                     std::u16string_view(second.data(), second.size()));
    beginNested();
}

void EquivalenceFullLogger::beginMatchingRange() {
    currentLog() << indent() << "Matching boost::iterator_range";
    beginNested();
}

void EquivalenceFullLogger::beginMatchingIntroductionNodes() {
    currentLog() << indent() << "Matching introduction nodes";
    beginNested();
}

void EquivalenceFullLogger::beginMatchingMemoryAddressesOfIntroductionNodes() {
    currentLog() << indent() << "Matching memory addresses of introduction nodes";
    beginNested();
}

void EquivalenceFullLogger::log(const char* message) {
    currentLog() << indent() << "-> " << message << std::endl;
}

void EquivalenceFullLogger::logRangeIndex(unsigned index) {
    currentLog() << indent() << "-> Matching nodes at index " << index
                 << " of boost::iterator_range" << std::endl;
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
    currentLog() << margin << "Introduction nodes do not match" << std::endl
                 << margin << "    Identifier in first tree:         " << firstIdentifier
                 << std::endl
                 << margin << "    Introduction node in first tree:  " << firstIntroductionNode
                 << std::endl
                 << margin << "    Identifier in second tree:        " << secondIdentifier
                 << std::endl
                 << margin << "    Introduction node in second tree: " << secondIntroductionNode
                 << std::endl;
}

void EquivalenceFullLogger::doneMatching(bool matched) {
    if (matched) {
        endNested();
        currentLog() << " - OK" << std::endl;
        return;
    }
    currentLog() << indent() << "-> NODES DO NOT MATCH < < < < < < < < < < < < < < < < < < < < "
                 << std::endl;
    const std::unique_ptr<std::ostringstream> failed = std::move(logStack.back());
    endNested();
    currentLog() << std::endl;
    asLevel(currentLog()).adopt(asLevel(*failed));
}

std::string EquivalenceFullLogger::getLog() const { return asLevel(currentLog()).getText(); }

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
