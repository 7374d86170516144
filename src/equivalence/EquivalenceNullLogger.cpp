#include <zt_orvex/equivalence/EquivalenceNullLogger.h>

namespace zt::orvex::internal {

EquivalenceNullLogger::EquivalenceNullLogger() = default;
EquivalenceNullLogger::~EquivalenceNullLogger() = default;

void EquivalenceNullLogger::startNewMatch() {}
void EquivalenceNullLogger::beginMatching(const std::string&, const std::string&) {}
void EquivalenceNullLogger::beginMatchingStrings(std::u16string_view, std::u16string_view) {}
void EquivalenceNullLogger::beginMatchingStrings(boost::basic_string_ref<char16_t>,
                                                 boost::basic_string_ref<char16_t>) {}
void EquivalenceNullLogger::beginMatchingRange() {}
void EquivalenceNullLogger::beginMatchingIntroductionNodes() {}
void EquivalenceNullLogger::beginMatchingMemoryAddressesOfIntroductionNodes() {}
void EquivalenceNullLogger::log(const char*) {}
void EquivalenceNullLogger::logRangeIndex(unsigned) {}
void EquivalenceNullLogger::logMismatchedNodes(const std::string&, const std::string&, NodeKind,
                                               NodeKind, unsigned, unsigned) {}
void EquivalenceNullLogger::logMismatchedOptionals(bool, const std::string&, NodeKind, unsigned) {}
void EquivalenceNullLogger::logMismatchedIntroductionNodes(const std::string&, const std::string&,
                                                           const std::string&, const std::string&) {
}
void EquivalenceNullLogger::doneMatching(bool) {}

std::string EquivalenceNullLogger::getLog() const {
    return "No AST matcher log available.  See the documentation in AstEquivalence for more "
           "information.";
}

} // namespace zt::orvex::internal
