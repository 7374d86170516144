#include <zt_orvex/ast/ILnrAdapter.h>

namespace zt::orvex {

ILnrAdapter::~ILnrAdapter() = default;
ILnrAdapter::ILnrAdapter() = default;
ILnrAdapter::ILnrAdapter(const ILnrAdapter&) = default;
ILnrAdapter& ILnrAdapter::operator=(const ILnrAdapter&) = default;

} // namespace zt::orvex
