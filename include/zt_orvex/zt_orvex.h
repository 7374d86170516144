#pragma once

// Everything that the library offers. Convenient for a small consumer; a large one compiles faster
// if it includes only what it needs.

// First, since it must be seen before any use of a stream of 16-bit characters.
#include <zt_orvex/support/Char16Locale.h>

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/analysis/AnsAnalysis.h>
#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex/ast/BasicAstView.h>
#include <zt_orvex/ast/ControlFlow.h>
#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/ILnrAdapter.h>
#include <zt_orvex/ast/IUnparserAdapter.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex/equivalence/AstEquivalence.h>
#include <zt_orvex/equivalence/EquivalenceFullLogger.h>
#include <zt_orvex/equivalence/EquivalenceLogger.h>
#include <zt_orvex/equivalence/EquivalenceNullLogger.h>
#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/Digraph.h>
#include <zt_orvex/flow/Lattice.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/SmallOrderedSet.h>
#include <zt_orvex/flow/SystemOfEquations.h>
#include <zt_orvex/flow/SystemOfEquationsBuilder.h>
#include <zt_orvex/flow/Terms.h>
#include <zt_orvex/flow/VariableFamily.h>
#include <zt_orvex/literals/Imaginary.h>
#include <zt_orvex/literals/IsNegativeVisitor.h>
#include <zt_orvex/literals/IsOneVisitor.h>
#include <zt_orvex/literals/IsZeroVisitor.h>
#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>
#include <zt_orvex/literals/LiteralValue.h>
#include <zt_orvex/literals/NumberConversionError.h>
#include <zt_orvex/literals/ValueToStringVisitor.h>
#include <zt_orvex/pragma/Pragma.h>
#include <zt_orvex/pragma/PragmaKind.h>
#include <zt_orvex/support/AllocatorStatistics.h>
#include <zt_orvex/support/ConvertibleBasicStringView.h>
#include <zt_orvex/support/Export.h>
#include <zt_orvex/support/Fnv1a.h>
#include <zt_orvex/support/PageSize.h>
#include <zt_orvex/support/Quote.h>
#include <zt_orvex/support/RestrictedExternals.h>
#include <zt_orvex/support/SmallString.h>
#include <zt_orvex/support/StringPool.h>
