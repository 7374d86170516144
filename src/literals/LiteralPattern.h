#pragma once

#include "literals/WidePattern.h"

#include <boost/regex.hpp>

#include <string_view>

namespace zt::orvex::internal {

/// One regular expression for 8-bit and 16-bit text. Both forms are always compiled.
class LiteralPattern {
public:
    /// Compiles `narrowPattern`, in Perl syntax, for 8-bit text and `widePattern` for 16-bit text.
    LiteralPattern(std::string_view narrowPattern, std::string_view widePattern);

    /// Whether `text` as a whole matches.
    bool matches(std::string_view text) const;
    bool matches(std::u16string_view text) const { return wide.matches(text); }

private:
    boost::regex narrow;
    WidePattern wide;
};

} // namespace zt::orvex::internal
