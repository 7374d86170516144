#pragma once

#include <zt_orvex/equivalence/EquivalenceLogger.h>

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace zt::orvex::internal {

/// Keeps the report of a matcher: a branch that matched is one line, a branch that failed has all
/// its details. AstEquivalence.h has an example.
///
/// Costs a stream for each open level; time and memory are linear in what is written. Mind that the
/// indentation alone makes the report of d nested failures about 4 d^2 bytes long.
///
/// UTF-16 strings are written as UTF-8.
///
/// Every operation but the constructor throws std::bad_alloc where memory runs out, and then has
/// had no effect: the same call may be tried again.
class ZT_ORVEX_EXPORT EquivalenceFullLogger : public EquivalenceLogger {
public:
    /// Makes an empty log with no open level.
    EquivalenceFullLogger();
    ~EquivalenceFullLogger() override;
    EquivalenceFullLogger(const EquivalenceFullLogger&) = delete;
    EquivalenceFullLogger& operator=(const EquivalenceFullLogger&) = delete;

    /// Empties the log and closes all levels.
    void clear();

    /// Deliberate: does nothing. Successive matches append to the same report; `clear` empties it.
    void startNewMatch() override;

    /// Opens a level with the head line `Matching FIRST against SECOND`.
    void beginMatching(const std::string& first, const std::string& second) override;
    /// @{
    /// Opens a level with the head line `Matching strings [FIRST] and [SECOND]`.
    void beginMatchingStrings(std::u16string_view first, std::u16string_view second) override;
    void beginMatchingStrings(boost::basic_string_ref<char16_t> first,
                              boost::basic_string_ref<char16_t> second) override;
    /// @}
    /// Opens a level with the head line `Matching boost::iterator_range`.
    void beginMatchingRange() override;
    /// Opens a level with the head line `Matching introduction nodes`.
    void beginMatchingIntroductionNodes() override;
    /// Opens a level with the head line `Matching memory addresses of introduction nodes`.
    void beginMatchingMemoryAddressesOfIntroductionNodes() override;

    /// Writes the line `-> MESSAGE`. `message` must not be null.
    void log(const char* message) override;
    /// Writes the line `-> Matching nodes at index INDEX of boost::iterator_range`. The global
    /// locale decides whether digits are grouped.
    void logRangeIndex(unsigned index) override;

    /// Calls `log` with "Node kinds do not match"; ignores the arguments.
    void logMismatchedNodes(const std::string& first, const std::string& second, NodeKind firstKind,
                            NodeKind secondKind, unsigned firstPosition,
                            unsigned secondPosition) override;

    /// Calls `log` with "boost::optionals do not match (one is empty, the other is not)"; ignores
    /// the arguments.
    void logMismatchedOptionals(bool isFirstPresent, const std::string& node, NodeKind kind,
                                unsigned position) override;

    /// Writes the line `Introduction nodes do not match` and a line for each of the four names.
    void logMismatchedIntroductionNodes(const std::string& firstIdentifier,
                                        const std::string& firstIntroductionNode,
                                        const std::string& secondIdentifier,
                                        const std::string& secondIntroductionNode) override;

    /// Ends the innermost level: adds ` - OK` to its head line and drops what is inside it, or
    /// keeps it all and writes a last line.
    ///
    /// Precondition: a level is open. That isn't checked, and the logger is unusable otherwise.
    void doneMatching(bool matched) override;

    /// The whole report, or only the text of the innermost level so far if one is open.
    std::string getLog() const override;

private:
    void openLevel(const std::string& head);
    void beginNested();
    void endNested();
    std::ostringstream& currentLog() const;
    std::string indent() const;

    std::uint32_t nestingDepth = 0;
    std::vector<std::unique_ptr<std::ostringstream>> logStack; // nestingDepth + 1 streams
};

} // namespace zt::orvex::internal
