#pragma once

/// Everything that the kit offers.
///
/// tree/     Is my tree consistent, what does it look like, how do I walk it?
/// body/     The control flow of a body, and what is live at each of its statements.
/// reasons/  Why is a variable live or not?

#include <zt_orvex_kit/Export.h>
#include <zt_orvex_kit/body/Access.h>
#include <zt_orvex_kit/body/FlowGraph.h>
#include <zt_orvex_kit/body/FlowText.h>
#include <zt_orvex_kit/body/Span.h>
#include <zt_orvex_kit/reasons/CheckExplanation.h>
#include <zt_orvex_kit/reasons/Explain.h>
#include <zt_orvex_kit/reasons/Explanation.h>
#include <zt_orvex_kit/tree/CheckTree.h>
#include <zt_orvex_kit/tree/Children.h>
#include <zt_orvex_kit/tree/DumpTree.h>
#include <zt_orvex_kit/tree/Finding.h>
#include <zt_orvex_kit/tree/KindName.h>
#include <zt_orvex_kit/tree/Place.h>
#include <zt_orvex_kit/tree/Streams.h>
#include <zt_orvex_kit/tree/SymbolNames.h>
#include <zt_orvex_kit/tree/Traversal.h>
