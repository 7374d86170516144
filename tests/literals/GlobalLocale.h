#pragma once

#include <locale>
#include <string>

namespace zt::orvex::testing {

/// Numbers as 1.234.567,5: what a program gets that sets a global locale for its users.
class CommaAndGroups : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Groups pairs of digits, which shows in hexadecimal numbers of every width.
class PairGroups : public std::numpunct<char> {
protected:
    char do_thousands_sep() const override { return '_'; }
    std::string do_grouping() const override { return "\2"; }
};

/// Makes the classic locale with `Facet` the global one for the length of a scope.
template <class Facet>
class GlobalLocale {
public:
    GlobalLocale() : before(std::locale::global(std::locale(std::locale::classic(), new Facet))) {}
    ~GlobalLocale() { std::locale::global(before); }
    GlobalLocale(const GlobalLocale&) = delete;
    GlobalLocale& operator=(const GlobalLocale&) = delete;

private:
    std::locale before;
};

} // namespace zt::orvex::testing
