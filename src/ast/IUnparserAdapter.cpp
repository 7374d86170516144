#include <zt_orvex/ast/IUnparserAdapter.h>

namespace zt::orvex {

IUnparserAdapter::~IUnparserAdapter() = default;
IUnparserAdapter::IUnparserAdapter() = default;
IUnparserAdapter::IUnparserAdapter(const IUnparserAdapter&) = default;
IUnparserAdapter& IUnparserAdapter::operator=(const IUnparserAdapter&) = default;

} // namespace zt::orvex
