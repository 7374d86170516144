#pragma once

#include <zt_orvex/literals/Imaginary.h>

#include <boost/variant.hpp>

namespace zt::orvex {

/// What a numeric literal can hold: the integers in the order of `internal::IntegerLiteralValue`,
/// then `double` and `Imaginary`.
///
/// Nothing in this library takes or gives one; it is what the visitors have an overload for each
/// alternative of.
///
///   internal::ValueToStringVisitor toString;
///   boost::apply_visitor([&](auto value) { return toString.visit(value); }, literalValue);
using LiteralValue = boost::variant<unsigned char, unsigned short, unsigned int, unsigned long long,
                                    signed char, short, int, long long, double, Imaginary>;

} // namespace zt::orvex
