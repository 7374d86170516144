#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/support/Export.h>

#include <string>

namespace zt::orvex {

/// Turns a node into source text.
///
/// An interface between other modules: one derives from this class, another one calls it. The
/// library only declares and exports it.
///
/// The order of the declarations is part of the binary interface.
class ZT_ORVEX_EXPORT IUnparserAdapter {
public:
    virtual ~IUnparserAdapter();

    /// Text that parses to `node` and its subtree. It need not be the text that was parsed.
    virtual std::u16string unparse(const NodeView& node) const = 0;

    IUnparserAdapter();
    /// @{
    /// Copies nothing: there is nothing to copy.
    IUnparserAdapter(const IUnparserAdapter& other);
    IUnparserAdapter& operator=(const IUnparserAdapter& other);
    /// @}
};

} // namespace zt::orvex
