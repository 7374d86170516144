#include <zt_orvex/ast/NodeKind.h>

#include "support/Utf16ToUtf8.h"
#include "support/WidenedInsertion.h"

#include <map>
#include <string>

namespace zt::orvex {

namespace {

std::set<NodeKind> makeAllNodeKinds() {
    std::set<NodeKind> kinds;
#define ZT_ORVEX_NODE_KIND(Name, Class) kinds.insert(NodeKind::Name);
#include <zt_orvex/ast/NodeKinds.def>
    return kinds;
}

const std::set<NodeKind> allNodeKinds = makeAllNodeKinds();

// Deliberate: empty, and must stay empty. Every kind prints as its number, and logs rely on it.
const std::map<NodeKind, std::u16string> nodeKindNames;

std::u16string decimalText(NodeKind kind) {
    const std::string narrow = std::to_string(static_cast<int>(kind));
    return std::u16string(narrow.begin(), narrow.end());
}

} // namespace

const std::set<NodeKind>& getAllNodeKinds() { return allNodeKinds; }

std::ostream& operator<<(std::ostream& stream, const NodeKind& kind) {
    const auto name = nodeKindNames.find(kind);
    if (name != nodeKindNames.end()) return stream << internal::utf16ToUtf8(name->second);
    return stream << static_cast<int>(kind);
}

std::basic_ostream<char16_t>& operator<<(std::basic_ostream<char16_t>& stream,
                                         const NodeKind& kind) {
    const auto name = nodeKindNames.find(kind);
    if (name != nodeKindNames.end()) return internal::insertText(stream, name->second);
    return internal::insertText(stream, decimalText(kind));
}

} // namespace zt::orvex
