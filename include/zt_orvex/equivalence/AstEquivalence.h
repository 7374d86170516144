#pragma once

/// @page matcher_report The report of a tree matcher
///
/// A matcher walks two trees side by side and decides whether they are equivalent. If they aren't,
/// its report shows where they differ. The matcher reports its steps to an `EquivalenceLogger`.
/// There are two: `internal::EquivalenceFullLogger` keeps the report, and
/// `internal::EquivalenceNullLogger` costs nothing and keeps none.
///
/// ## Reading a report
///
/// Each step down opens a level: a head line, with everything inside the level indented by four
/// more blanks.
///
/// - A level that matched is its head line followed by " - OK"; nothing inside it is kept.
/// - A level that failed is its head line, its lines, and "-> NODES DO NOT MATCH" at the end. That
///   line ends in a row of "< " and therefore in a blank.
///
/// So follow the levels that don't end in " - OK": the innermost one gives the reason, on a line
/// that begins with "-> " or with "Introduction nodes do not match".
///
/// The head lines:
///
///     Matching A against B                              two nodes
///     Matching strings [a] and [b]                      two strings, as UTF-8
///     Matching boost::iterator_range                    two lists of nodes; lines "-> Matching
///                                                       nodes at index 0 of
///                                                       boost::iterator_range" follow
///     Matching introduction nodes                       the nodes that introduce two identifiers
///     Matching memory addresses of introduction nodes   whether they are the same object
///
/// The reasons:
///
///     -> Node kinds do not match
///     -> boost::optionals do not match (one is empty, the other is not)
///     Introduction nodes do not match                   followed by four lines that name them
///     -> anything else                                  in the matcher's own words
///
/// Successive matches append to the same report. While a level is open, `getLog` returns that level
/// alone.
///
/// ## An example
///
/// These calls
///
///     internal::EquivalenceFullLogger logger;
///     logger.beginMatching("A", "B");
///     logger.beginMatching("C", "D");
///     logger.doneMatching(true);
///     logger.beginMatching("E", "F");
///     logger.logMismatchedNodes("E", "F", kindOfE, kindOfF, positionOfE, positionOfF);
///     logger.doneMatching(false);
///     logger.doneMatching(false);
///
/// leave this report, shown with quotes around each line to make its ends visible:
///
///     "Matching A against B"
///     "    Matching C against D - OK"
///     "    Matching E against F"
///     "        -> Node kinds do not match"
///     "        -> NODES DO NOT MATCH < < < < < < < < < < < < < < < < < < < < "
///     "    -> NODES DO NOT MATCH < < < < < < < < < < < < < < < < < < < < "
///
/// C and D match. A and B don't, because E and F inside them are nodes of different kinds.

#include <zt_orvex/equivalence/EquivalenceFullLogger.h>
#include <zt_orvex/equivalence/EquivalenceLogger.h>
#include <zt_orvex/equivalence/EquivalenceNullLogger.h>
