#include <zt_orvex_kit/tree/KindName.h>

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace zt::orvex::kit {

namespace {

// By kind.
constexpr std::string_view NAMES[] = {
    "unknown",
#define ZT_ORVEX_NODE_KIND(Name, Class) #Name,
#include <zt_orvex/ast/NodeKinds.def>
};

// The words for the classes that a row of the table can have.
namespace class_names {
constexpr std::string_view Other = "other";
constexpr std::string_view Statement = "statement";
constexpr std::string_view Expression = "expression";
constexpr std::string_view Method = "method";
} // namespace class_names

// By kind.
constexpr std::string_view CLASSES[] = {
    class_names::Other,
#define ZT_ORVEX_NODE_KIND(Name, Class) class_names::Class,
#include <zt_orvex/ast/NodeKinds.def>
};

/// An index into a table by kind; unknown kinds share that of `Invalid`.
std::size_t toIndex(NodeKind kind) {
    const auto value = static_cast<std::uint8_t>(kind);
    return value < std::size(NAMES) ? value : 0;
}

} // namespace

std::string_view kindName(NodeKind kind) { return NAMES[toIndex(kind)]; }

std::string_view className(NodeKind kind) { return CLASSES[toIndex(kind)]; }

} // namespace zt::orvex::kit
