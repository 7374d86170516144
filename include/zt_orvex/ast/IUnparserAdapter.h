#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/support/Export.h>

#include <string>

namespace zt::orvex {

/// Gives the source text of a node.
///
/// A point of contact between other modules. One of them derives from this class, another one asks;
/// the library declares and exports it and does nothing else with it.
///
/// The order of the declarations is part of the binary interface.
class ZT_ORVEX_EXPORT IUnparserAdapter {
public:
    virtual ~IUnparserAdapter();

    /// Text that parses to `node` and what is below it. It need not be the text that was parsed.
    virtual std::u16string unparse(const NodeView& node) const = 0;

    IUnparserAdapter();
    IUnparserAdapter(const IUnparserAdapter& other);
    /// Copies nothing: there is nothing to copy.
    IUnparserAdapter& operator=(const IUnparserAdapter& other);
};

} // namespace zt::orvex
