#pragma once

#include <zt_orvex/equivalence/EquivalenceLogger.h>

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace zt::orvex::internal {

/// Keeps the report of a matcher, in which a branch that matched is one line and a branch that
/// failed has all its details. AstEquivalence.h has an example.
///
/// Costs a stream for each level that is open; time and memory are linear in what is written. The
/// indentation alone makes the report of d nested failures 4 d^2 bytes long: 2,000 of them leave
/// 16 MB, which took ten milliseconds where it was measured.
///
/// Strings in UTF-16 are written as UTF-8.
class ZT_ORVEX_EXPORT EquivalenceFullLogger : public EquivalenceLogger {
public:
    /// An empty log, without open levels.
    EquivalenceFullLogger();
    ~EquivalenceFullLogger() override;
    EquivalenceFullLogger(const EquivalenceFullLogger&) = delete;
    EquivalenceFullLogger& operator=(const EquivalenceFullLogger&) = delete;

    /// Back to an empty log, open levels and all.
    void clear();

    /// Deliberate: nothing. Several matches log one after the other into the same report; `clear`
    /// empties it.
    void startNewMatch() override;

    void beginMatching(const std::string& first, const std::string& second) override;
    void beginMatchingStrings(std::u16string_view first, std::u16string_view second) override;
    void beginMatchingStrings(boost::basic_string_ref<char16_t> first,
                              boost::basic_string_ref<char16_t> second) override;
    void beginMatchingRange() override;
    void beginMatchingIntroductionNodes() override;
    void beginMatchingMemoryAddressesOfIntroductionNodes() override;
    void log(const char* message) override;
    void logRangeIndex(unsigned index) override;

    /// Logs "Node kinds do not match", and nothing of the arguments.
    void logMismatchedNodes(const std::string& first, const std::string& second, NodeKind firstKind,
                            NodeKind secondKind, unsigned firstPosition,
                            unsigned secondPosition) override;

    /// Logs "boost::optionals do not match (one is empty, the other is not)", and nothing of the
    /// arguments.
    void logMismatchedOptionals(bool isFirstPresent, const std::string& node, NodeKind kind,
                                unsigned position) override;

    void logMismatchedIntroductionNodes(const std::string& firstIdentifier,
                                        const std::string& firstIntroductionNode,
                                        const std::string& secondIdentifier,
                                        const std::string& secondIntroductionNode) override;

    /// There must be an open level; without one the logger is of no use afterwards.
    void doneMatching(bool matched) override;

    /// Only the innermost level's text so far, while a level is open.
    std::string getLog() const override;

private:
    void beginNested();
    void endNested();
    std::ostringstream& currentLog() const;
    std::string indent() const;

    std::uint32_t nestingDepth = 0;
    std::vector<std::unique_ptr<std::ostringstream>> logStack; // nestingDepth + 1 of them
};

} // namespace zt::orvex::internal
