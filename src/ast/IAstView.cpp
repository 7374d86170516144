#include <zt_orvex/ast/IAstView.h>

namespace zt::orvex {

IAstView::~IAstView() = default;
IAstView::IAstView() = default;
IAstView::IAstView(const IAstView&) = default;
IAstView& IAstView::operator=(const IAstView&) = default;

} // namespace zt::orvex
