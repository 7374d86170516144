#pragma once

#include <zt_orvex/flow/Terms.h>

#include <typeinfo>

namespace zt::orvex::flow::internal {

/// Which of the framework's classes a term is; `Foreign` for a class of the caller's.
enum class TermClass { Foreign, Variable, Constant, Join, Meet, Minus };

/// Without run-time type information every term counts as foreign: an evaluator then applies it
/// instead of compiling it.
template <typename V>
TermClass classOf(const Term<V>& term) {
#ifdef __cpp_rtti
    // Addresses suffice: a type_info of which another module has a copy is a foreign class.
    const std::type_info* const type = &typeid(term);
    if (type == &typeid(Variable<V>)) return TermClass::Variable;
    if (type == &typeid(Join<V>)) return TermClass::Join;
    if (type == &typeid(Minus<V>)) return TermClass::Minus;
    if (type == &typeid(Constant<V>)) return TermClass::Constant;
    if (type == &typeid(Meet<V>)) return TermClass::Meet;
#else
    static_cast<void>(term);
#endif
    return TermClass::Foreign;
}

} // namespace zt::orvex::flow::internal
