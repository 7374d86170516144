#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/support/Char16Locale.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace zt::orvex {
namespace {

using Stream16 = std::basic_ostringstream<char16_t>;

// The spellings in the order of their values, written by hand as a second opinion.
const std::vector<std::string> BINARY = {"+",  "-",   "*",  "/",  "\\", "^",  ".*",
                                         "./", ".\\", ".^", "<=", "<",  ">=", ">",
                                         "==", "~=",  "&&", "&",  "||", "|",  "@"};
const std::vector<std::string> UNARY = {"+", "-", "'", ".'", "~", "?", "@"};

template <class Operator>
std::string inserted(Stream16& stream, Operator op) {
    stream << op;
    const std::u16string text = stream.str();
    return std::string(text.begin(), text.end());
}

template <class Operator>
void expectSpellings(const std::vector<std::string>& spellings) {
    for (std::size_t value = 0; value < spellings.size(); ++value) {
        const auto op = static_cast<Operator>(value);
        EXPECT_EQ(toString(op), spellings[value]) << value;
        Stream16 bare;
        EXPECT_EQ(inserted(bare, op), spellings[value]) << value;
        EXPECT_TRUE(bare.good());
        Stream16 imbued;
        imbued.imbue(getChar16Locale());
        EXPECT_EQ(inserted(imbued, op), spellings[value]) << value;
    }
}

template <class Operator>
void expectOutOfRange(Operator op) {
    const auto text = ::testing::ThrowsMessage<std::out_of_range>("invalid map<K, T> key");
    EXPECT_THAT([op] { toString(op); }, text);
    Stream16 stream;
    stream.exceptions(std::ios_base::badbit | std::ios_base::failbit);
    stream << std::setw(4);
    EXPECT_THAT([&] { stream << op; }, text);
    EXPECT_EQ(stream.width(), 4);
    EXPECT_TRUE(stream.good());
    EXPECT_TRUE(stream.str().empty());
}

template <class Operator, class Stream, class = void>
struct HasInserter : std::false_type {};
template <class Operator, class Stream>
struct HasInserter<Operator, Stream,
                   std::void_t<decltype(std::declval<Stream&>() << std::declval<Operator>())>>
    : std::true_type {};

TEST(Operators, BinaryOperatorsHaveTheirSpellings) { expectSpellings<BinaryOperator>(BINARY); }

TEST(Operators, UnaryOperatorsHaveTheirSpellings) { expectSpellings<UnaryOperator>(UNARY); }

TEST(Operators, NumbersAreFixed) {
    static_assert(std::is_same_v<std::underlying_type_t<BinaryOperator>, std::uint32_t>);
    static_assert(std::is_same_v<std::underlying_type_t<UnaryOperator>, std::uint32_t>);
    EXPECT_EQ(static_cast<int>(BinaryOperator::Add), 0);
    EXPECT_EQ(static_cast<int>(BinaryOperator::At), 20);
    EXPECT_EQ(static_cast<int>(UnaryOperator::UnaryPlus), 0);
    EXPECT_EQ(static_cast<int>(UnaryOperator::UnaryAt), 6);
}

TEST(Operators, DoubledFormComesDirectlyBeforeTheSingleOne) {
    EXPECT_EQ(static_cast<int>(BinaryOperator::ShortCircuitAnd), 16);
    EXPECT_EQ(static_cast<int>(BinaryOperator::ElementAnd), 17);
    EXPECT_EQ(static_cast<int>(BinaryOperator::ShortCircuitOr), 18);
    EXPECT_EQ(static_cast<int>(BinaryOperator::ElementOr), 19);
}

TEST(Operators, ElementLeftDivideIsADotAndABackslash) {
    EXPECT_EQ(toString(BinaryOperator::ElementLeftDivide), std::string({'.', '\\'}));
}

TEST(Operators, ApostropheIsOneCharacterAndAtIsTheSameForBothOperators) {
    EXPECT_EQ(toString(UnaryOperator::Apostrophe), "'");
    EXPECT_EQ(toString(UnaryOperator::UnaryAt), toString(BinaryOperator::At));
}

TEST(Operators, ValueOutsideTheTableThrowsBeforeTheStreamIsTouched) {
    expectOutOfRange(static_cast<BinaryOperator>(21));
    expectOutOfRange(static_cast<BinaryOperator>(std::numeric_limits<std::uint32_t>::max()));
    expectOutOfRange(static_cast<UnaryOperator>(7));
    expectOutOfRange(static_cast<UnaryOperator>(std::numeric_limits<std::uint32_t>::max()));
}

TEST(Operators, WidthAndFillApply) {
    Stream16 stream;
    stream.imbue(getChar16Locale());
    stream << std::setfill(u'*') << std::setw(4) << BinaryOperator::Add << std::left << std::setw(4)
           << UnaryOperator::DotApostrophe << BinaryOperator::Less;
    EXPECT_EQ(stream.str(), u"***+.'**<");
    EXPECT_EQ(stream.width(), 0);
}

TEST(Operators, WidthAppliesOnAStreamWithoutALocaleForItsCharacters) {
    Stream16 stream;
    stream << std::setw(4) << BinaryOperator::Add << std::left << std::setw(3)
           << UnaryOperator::Tilde << BinaryOperator::Less;
    EXPECT_EQ(stream.str(), u"   +~  <");
    EXPECT_TRUE(stream.good());
}

TEST(Operators, ReturnTheirStream) {
    Stream16 stream;
    EXPECT_EQ(&(stream << BinaryOperator::Add), &stream);
    EXPECT_EQ(&(stream << UnaryOperator::Tilde), &stream);
}

TEST(Operators, NarrowStreamsHaveNoInserter) {
    static_assert(HasInserter<BinaryOperator, Stream16>::value);
    static_assert(!HasInserter<BinaryOperator, std::ostringstream>::value);
    static_assert(!HasInserter<UnaryOperator, std::ostringstream>::value);
}

} // namespace
} // namespace zt::orvex
