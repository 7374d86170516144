#pragma once

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/support/Export.h>

#include <boost/utility/string_ref.hpp>

#include <string>
#include <string_view>

namespace zt::orvex {

/// The interface through which a matcher of two trees reports its steps. AstEquivalence.h describes
/// the report.
///
/// Each `beginMatching...` is paired with one `doneMatching`, and levels nest as the walk does;
/// `log...` may be called at any level. Nothing is checked. A logger belongs to one thread at a
/// time. Text arguments are read only during the call.
///
///     logger.beginMatching("A", "B");
///     if (!sameKind)
///         logger.logMismatchedNodes("A", "B", kindOfA, kindOfB, positionOfA, positionOfB);
///     logger.doneMatching(sameKind);
class ZT_ORVEX_EXPORT EquivalenceLogger {
public:
    EquivalenceLogger();
    virtual ~EquivalenceLogger();

    /// Announces a new pair of trees. The report of earlier matches stays.
    virtual void startNewMatch() = 0;

    /// Opens a level for two nodes, by name.
    virtual void beginMatching(const std::string& first, const std::string& second) = 0;

    /// @{
    /// Opens a level for two strings.
    ///
    /// Pass two views of the same type. A bare u"..." converts to either type, so a call with two
    /// of them is ambiguous: write `std::u16string_view(u"a")`.
    virtual void beginMatchingStrings(std::u16string_view first, std::u16string_view second) = 0;
    virtual void beginMatchingStrings(boost::basic_string_ref<char16_t> first,
                                      boost::basic_string_ref<char16_t> second) = 0;
    /// @}

    /// Opens a level for two lists of nodes. `logRangeIndex` follows before each pair.
    virtual void beginMatchingRange() = 0;
    /// Opens a level for the nodes that introduce two identifiers.
    virtual void beginMatchingIntroductionNodes() = 0;
    /// Opens a level for the question whether two identifiers are introduced by the same object.
    virtual void beginMatchingMemoryAddressesOfIntroductionNodes() = 0;

    /// Reports a reason in the matcher's own words. `message` must not be null.
    virtual void log(const char* message) = 0;
    /// Reports which pair of two lists comes next, from 0.
    virtual void logRangeIndex(unsigned index) = 0;

    /// Reports two nodes, by name, kind and position.
    virtual void logMismatchedNodes(const std::string& first, const std::string& second,
                                    NodeKind firstKind, NodeKind secondKind, unsigned firstPosition,
                                    unsigned secondPosition) = 0;

    /// Reports that only one of two optional nodes is present: whether it is the first, and its
    /// name, kind and position.
    virtual void logMismatchedOptionals(bool isFirstPresent, const std::string& node, NodeKind kind,
                                        unsigned position) = 0;

    /// Reports that two identifiers are introduced by different nodes: the names of all four.
    virtual void logMismatchedIntroductionNodes(const std::string& firstIdentifier,
                                                const std::string& firstIntroductionNode,
                                                const std::string& secondIdentifier,
                                                const std::string& secondIntroductionNode) = 0;

    /// Ends the innermost level, with the verdict on it.
    virtual void doneMatching(bool matched) = 0;

    /// The text of the innermost open level, or the whole report if no level is open.
    virtual std::string getLog() const = 0;
};

} // namespace zt::orvex
