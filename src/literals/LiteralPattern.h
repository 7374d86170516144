#pragma once

#include "literals/WidePattern.h"

#include <boost/regex.hpp>

#include <string_view>

namespace zt::orvex::internal {

/// One regular expression for 8-bit and 16-bit text. Both forms are always compiled.
///
/// The engine for 8-bit text keeps objects in static storage, which are destroyed when the process
/// ends, perhaps before a caller's static objects. From then on nothing touches the engine: only the
/// 16-bit form is compiled, and 8-bit text is widened for it.
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
