#pragma once

namespace ostrel::report {

// The parts of the page that are the same in every report.

extern const char* const HTML_HEAD;   ///< Up to and including the opening tag of the body.
extern const char* const HTML_LEGEND; ///< What the marks of the roles mean.
extern const char* const HTML_FOOT;   ///< The script and the closing tags.

} // namespace ostrel::report
