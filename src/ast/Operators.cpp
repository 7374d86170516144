#include <zt_orvex/ast/Operators.h>

#include <zt_orvex/support/Char16Locale.h>

#include "support/Utf16ToUtf8.h"
#include "support/WidenedInsertion.h"

#include <map>
#include <sstream>
#include <stdexcept>

namespace zt::orvex {

namespace {

template <class Operator>
using Spellings = std::map<Operator, const char16_t*>;

const Spellings<BinaryOperator> binarySpellings = {
    {BinaryOperator::Add, u"+"},
    {BinaryOperator::Subtract, u"-"},
    {BinaryOperator::MatrixMultiply, u"*"},
    {BinaryOperator::MatrixRightDivide, u"/"},
    {BinaryOperator::MatrixLeftDivide, u"\\"},
    {BinaryOperator::MatrixPower, u"^"},
    {BinaryOperator::ElementMultiply, u".*"},
    {BinaryOperator::ElementRightDivide, u"./"},
    {BinaryOperator::ElementLeftDivide, u".\\"},
    {BinaryOperator::ElementPower, u".^"},
    {BinaryOperator::LessOrEqual, u"<="},
    {BinaryOperator::Less, u"<"},
    {BinaryOperator::GreaterOrEqual, u">="},
    {BinaryOperator::Greater, u">"},
    {BinaryOperator::Equal, u"=="},
    {BinaryOperator::NotEqual, u"~="},
    {BinaryOperator::ShortCircuitAnd, u"&&"},
    {BinaryOperator::ElementAnd, u"&"},
    {BinaryOperator::ShortCircuitOr, u"||"},
    {BinaryOperator::ElementOr, u"|"},
    {BinaryOperator::At, u"@"},
};

const Spellings<UnaryOperator> unarySpellings = {
    {UnaryOperator::UnaryPlus, u"+"},  {UnaryOperator::UnaryMinus, u"-"},
    {UnaryOperator::Apostrophe, u"'"}, {UnaryOperator::DotApostrophe, u".'"},
    {UnaryOperator::Tilde, u"~"},      {UnaryOperator::QuestionMark, u"?"},
    {UnaryOperator::UnaryAt, u"@"},
};

/// Like `std::map::at`, with a message that doesn't depend on the standard library.
template <class Operator>
const char16_t* spellingOf(const Spellings<Operator>& spellings, Operator op) {
    const auto row = spellings.find(op);
    if (row == spellings.end()) throw std::out_of_range("invalid map<K, T> key");
    return row->second;
}

template <class Operator>
std::string toUtf8(Operator op) {
    std::basic_ostringstream<char16_t> stream;
    stream.exceptions(std::ios_base::badbit); // a failed allocation must not shorten the text
    stream.imbue(getChar16Locale());
    stream << op;
    return internal::utf16ToUtf8(stream.str());
}

} // namespace

std::basic_ostream<char16_t>& operator<<(std::basic_ostream<char16_t>& stream,
                                         const BinaryOperator& op) {
    return internal::insertText(stream, spellingOf(binarySpellings, op));
}

std::basic_ostream<char16_t>& operator<<(std::basic_ostream<char16_t>& stream,
                                         const UnaryOperator& op) {
    return internal::insertText(stream, spellingOf(unarySpellings, op));
}

std::string toString(BinaryOperator op) { return toUtf8(op); }
std::string toString(UnaryOperator op) { return toUtf8(op); }

} // namespace zt::orvex
