#include "tree/TreeBuilder.h"

#include "tree/NodeShape.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace ostrel {

using zt::orvex::NodeKind;

namespace {

std::uint32_t index(std::size_t value) { return static_cast<std::uint32_t>(value); }

template <typename Vector>
void shrink(Vector& vector, std::size_t size) {
    vector.erase(vector.begin() + static_cast<std::ptrdiff_t>(size), vector.end());
}

} // namespace

TreeBuilder::TreeBuilder() {
    storage.nodes.push_back({NodeKind::Invalid, 0, 0, 0, 0, 0});
    scope(ScopeKind::Labels, u"");
}

Field TreeBuilder::each(const NodeId* children, std::size_t count) {
    const Field field{index(storage.elements.size()), index(count)};
    storage.elements.insert(storage.elements.end(), children, children + count);
    return field;
}

NodeId TreeBuilder::add(NodeKind kind, Extent extent, std::size_t data, std::uint8_t op,
                        std::size_t height) {
    const auto stored = static_cast<std::uint16_t>(std::min<std::size_t>(height, UINT16_MAX));
    storage.nodes.push_back(
        {kind, op, stored, index(extent.begin), index(extent.end), index(data)});
    return index(storage.nodes.size() - 1);
}

std::size_t TreeBuilder::heightOf(NodeKind kind, std::initializer_list<Field> fields) const {
    std::uint16_t highest = 0;
    const FieldKind* fieldKind = shapeOf(kind).fields.data();
    for (const Field& field : fields) {
        const bool isRange = *fieldKind++ == FieldKind::Each;
        for (std::uint32_t i = 0; i < field.count; ++i) {
            const NodeId child = isRange ? storage.elements[field.begin + i] : field.begin;
            highest = std::max(highest, at(child).height);
        }
    }
    return highest + std::size_t{1};
}

NodeId TreeBuilder::node(NodeKind kind, Extent extent, std::initializer_list<Field> fields,
                         std::uint8_t op) {
    assert(fields.size() == shapeOf(kind).count);
    const std::size_t data = storage.fields.size();
    storage.fields.insert(storage.fields.end(), fields);
    return add(kind, extent, data, op, heightOf(kind, fields));
}

NodeId TreeBuilder::leaf(NodeKind kind, Extent extent) {
    assert(shapeOf(kind).count == 0);
    return add(kind, extent, 0);
}

NodeId TreeBuilder::literal(NodeKind kind, std::u16string_view spelling, Extent extent) {
    const std::size_t data = storage.fields.size();
    storage.fields.resize(data + shapeOf(kind).count, maybe(0));
    storage.fields.push_back({index(storage.characters.size()), index(spelling.size())});
    storage.characters += spelling;
    return add(kind, extent, data);
}

NodeId TreeBuilder::identifier(NameId name, ScopeId scope, Role role, Extent extent) {
    storage.identifiers.push_back({name, scope, 0, role});
    return add(NodeKind::Identifier, extent, storage.identifiers.size() - 1);
}

ScopeId TreeBuilder::scope(ScopeKind kind, std::u16string_view name) {
    storage.scopes.push_back({kind, intern(name)});
    return index(storage.scopes.size() - 1);
}

NameId TreeBuilder::intern(std::u16string_view name) {
    const auto known = nameIds.find(name);
    if (known != nameIds.end()) return known->second;
    storage.names.emplace_back(name);
    const NameId id = index(storage.names.size() - 1);
    nameIds.emplace(storage.names.back(), id);
    return id;
}

TreeBuilder::Checkpoint TreeBuilder::checkpoint() const {
    return {storage.nodes.size(),       storage.fields.size(), storage.elements.size(),
            storage.identifiers.size(), storage.scopes.size(), storage.characters.size()};
}

void TreeBuilder::rollBack(const Checkpoint& to) {
    shrink(storage.nodes, to.nodes);
    shrink(storage.fields, to.fields);
    shrink(storage.elements, to.elements);
    shrink(storage.identifiers, to.identifiers);
    shrink(storage.scopes, to.scopes);
    storage.characters.resize(to.characters);
}

TreeStorage TreeBuilder::release() {
    nameIds.clear();
    return std::exchange(storage, {});
}

} // namespace ostrel
