#pragma once

#include <zt_orvex/literals/Imaginary.h>

#include <boost/variant.hpp>

namespace zt::orvex {

/// The value of any numeric literal: the integers in the order of `internal::IntegerLiteralValue`,
/// then `double` and `Imaginary`.
///
/// No function of the library takes or returns one, but each visitor has an overload for every
/// alternative.
///
///     internal::ValueToStringVisitor toString;
///     boost::apply_visitor([&](auto value) { return toString.visit(value); }, literalValue);
using LiteralValue = boost::variant<unsigned char, unsigned short, unsigned int, unsigned long long,
                                    signed char, short, int, long long, double, Imaginary>;

} // namespace zt::orvex
