#pragma once

namespace ostrel::report {

// The page without its report: page/page.html with the style sheet and the script in it, cut where
// it has `<!-- LETTERS -->` and so on. EmbedPage.cmake makes the source file.

extern const char* const PAGE_UNTIL_LETTERS; ///< In the style sheet.
extern const char* const PAGE_UNTIL_LEGEND;  ///< In the list of marks.
extern const char* const PAGE_UNTIL_FILES;   ///< In the main part.
extern const char* const PAGE_UNTIL_INDEX;   ///< After the main part.
extern const char* const PAGE_REST;

} // namespace ostrel::report
