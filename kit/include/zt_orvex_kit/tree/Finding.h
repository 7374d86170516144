#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex_kit/Export.h>

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace zt::orvex::kit {

/// What is wrong with a tree. FindingCodes.def has a line on each.
enum class FindingCode : std::uint8_t {
#define ZT_ORVEX_KIT_FINDING(Code, text, meaning) Code,
#include <zt_orvex_kit/tree/FindingCodes.def>
};

/// The stable text of a code, such as "kind-unknown". It lives as long as the program. `code` must
/// be an enumerator; that isn't checked.
ZT_ORVEX_KIT_EXPORT std::string_view codeText(FindingCode code);

/// What a code means, as a sentence. It lives as long as the program. `code` must be an enumerator;
/// that isn't checked.
ZT_ORVEX_KIT_EXPORT std::string_view codeMeaning(FindingCode code);

/// One mistake in a tree.
struct Finding {
    FindingCode code; ///< What sort of mistake it is.
    /// Where: "ParforStatement.getParforBody[2] > IfStatement.getIfCondition", as `toText` of a
    /// place has it. The last step is the question that got the wrong answer.
    std::string place;
    /// What is wrong and what to do, as sentences.
    std::string advice;
    /// The node that the answer names, or that was asked. None if it isn't about a node.
    std::optional<NodeView> node;
    /// The symbol that it is about, if it is about one.
    std::optional<SymbolView> symbol;
};

/// Writes the code, the place, the handle and the advice, as they are, on one line:
///
///     kind-unknown at Row.getRowExpressions[0] (node 0x11): getNodeKind answered 0. Return ...
ZT_ORVEX_KIT_EXPORT std::ostream& operator<<(std::ostream& stream, const Finding& finding);

} // namespace zt::orvex::kit
