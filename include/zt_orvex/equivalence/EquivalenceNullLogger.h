#pragma once

#include <zt_orvex/equivalence/EquivalenceLogger.h>

namespace zt::orvex::internal {

/// A logger for matchers whose report nobody reads: it does nothing and reads no argument.
class ZT_ORVEX_EXPORT EquivalenceNullLogger : public EquivalenceLogger {
public:
    EquivalenceNullLogger();
    ~EquivalenceNullLogger() override;

    /// @{
    /// Does nothing.
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
    void logMismatchedNodes(const std::string& first, const std::string& second, NodeKind firstKind,
                            NodeKind secondKind, unsigned firstPosition,
                            unsigned secondPosition) override;
    void logMismatchedOptionals(bool isFirstPresent, const std::string& node, NodeKind kind,
                                unsigned position) override;
    void logMismatchedIntroductionNodes(const std::string& firstIdentifier,
                                        const std::string& firstIntroductionNode,
                                        const std::string& secondIdentifier,
                                        const std::string& secondIntroductionNode) override;
    void doneMatching(bool matched) override;
    /// @}

    /// Always "No AST matcher log available.  See the documentation in AstEquivalence for more
    /// information.", with two blanks after the first sentence.
    std::string getLog() const override;
};

} // namespace zt::orvex::internal
