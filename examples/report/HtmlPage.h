#pragma once

namespace ostrel::report {

// The parts of a page that are the same for every report.

extern const char* const HTML_HEAD;   ///< Up to and with the opening of the body.
extern const char* const HTML_LEGEND; ///< What the marks of the roles mean.
extern const char* const HTML_FOOT;   ///< The script, and all that closes.

} // namespace ostrel::report
