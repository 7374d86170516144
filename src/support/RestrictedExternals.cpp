#include <zt_orvex/support/RestrictedExternals.h>

namespace zt::orvex {

const std::unordered_set<std::u16string>& getRestrictedExternals() {
    // Never destroyed, so that the reference stays valid in destructors of static objects.
    static const auto& names = *new std::unordered_set<std::u16string>{
        u"nargin", u"nargout", u"eval",      u"evalc",    u"evalin",    u"assignin",
        u"feval",  u"builtin", u"load",      u"save",     u"who",       u"whos",
        u"input",  u"dbstack", u"inputname", u"varargin", u"narginchk", u"nargoutchk"};
    return names;
}

} // namespace zt::orvex
