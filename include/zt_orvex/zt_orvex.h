#pragma once

// All that the library offers. Convenient for a small consumer; a large one compiles faster with
// the headers that it needs.

// First, since it must be seen before streams of 16-bit characters are used.
#include <zt_orvex/support/Char16Locale.h>

#include <zt_orvex/analysis/RestrictedExternals.h>
#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/ILnrAdapter.h>
#include <zt_orvex/ast/IUnparserAdapter.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex/support/AllocatorStatistics.h>
#include <zt_orvex/support/ConvertibleBasicStringView.h>
#include <zt_orvex/support/Export.h>
#include <zt_orvex/support/Fnv1a.h>
#include <zt_orvex/support/PageSize.h>
#include <zt_orvex/support/Quote.h>
#include <zt_orvex/support/SmallString.h>
#include <zt_orvex/support/StringPool.h>
