#pragma once

#include <zt_orvex/support/Export.h>

#include <locale> // says which standard library it is

#if defined(_LIBCPP_VERSION)
#include <cstddef>
#include <string>

// libc++ declares these class templates for every type of character but defines them for `char` and
// `wchar_t` alone, so they are supplied whole. What they promise is said at `getChar16Locale`.

template <>
class ZT_ORVEX_EXPORT std::ctype<char16_t> : public std::locale::facet, public std::ctype_base {
public:
    using char_type = char16_t;

    static std::locale::id id;

    explicit ctype(std::size_t references = 0) : facet(references) {}

    bool is(mask classes, char16_t unit) const { return do_is(classes, unit); }
    const char16_t* is(const char16_t* first, const char16_t* last, mask* classes) const {
        return do_is(first, last, classes);
    }
    const char16_t* scan_is(mask classes, const char16_t* first, const char16_t* last) const {
        return do_scan_is(classes, first, last);
    }
    const char16_t* scan_not(mask classes, const char16_t* first, const char16_t* last) const {
        return do_scan_not(classes, first, last);
    }
    char16_t toupper(char16_t unit) const { return do_toupper(unit); }
    const char16_t* toupper(char16_t* first, const char16_t* last) const {
        return do_toupper(first, last);
    }
    char16_t tolower(char16_t unit) const { return do_tolower(unit); }
    const char16_t* tolower(char16_t* first, const char16_t* last) const {
        return do_tolower(first, last);
    }
    char16_t widen(char c) const { return do_widen(c); }
    const char* widen(const char* first, const char* last, char16_t* units) const {
        return do_widen(first, last, units);
    }
    char narrow(char16_t unit, char fallback) const { return do_narrow(unit, fallback); }
    const char16_t* narrow(const char16_t* first, const char16_t* last, char fallback,
                           char* chars) const {
        return do_narrow(first, last, fallback, chars);
    }

protected:
    ~ctype() override;
    virtual bool do_is(mask classes, char16_t unit) const;
    virtual const char16_t* do_is(const char16_t* first, const char16_t* last, mask* classes) const;
    virtual const char16_t* do_scan_is(mask classes, const char16_t* first,
                                       const char16_t* last) const;
    virtual const char16_t* do_scan_not(mask classes, const char16_t* first,
                                        const char16_t* last) const;
    virtual char16_t do_toupper(char16_t unit) const;
    virtual const char16_t* do_toupper(char16_t* first, const char16_t* last) const;
    virtual char16_t do_tolower(char16_t unit) const;
    virtual const char16_t* do_tolower(char16_t* first, const char16_t* last) const;
    virtual char16_t do_widen(char c) const;
    virtual const char* do_widen(const char* first, const char* last, char16_t* units) const;
    virtual char do_narrow(char16_t unit, char fallback) const;
    virtual const char16_t* do_narrow(const char16_t* first, const char16_t* last, char fallback,
                                      char* chars) const;
};

template <>
class ZT_ORVEX_EXPORT std::numpunct<char16_t> : public std::locale::facet {
public:
    using char_type = char16_t;
    using string_type = std::u16string;

    static std::locale::id id;

    explicit numpunct(std::size_t references = 0) : facet(references) {}

    char16_t decimal_point() const { return do_decimal_point(); }
    char16_t thousands_sep() const { return do_thousands_sep(); }
    std::string grouping() const { return do_grouping(); }
    std::u16string truename() const { return do_truename(); }
    std::u16string falsename() const { return do_falsename(); }

protected:
    ~numpunct() override;
    virtual char16_t do_decimal_point() const;
    virtual char16_t do_thousands_sep() const;
    virtual std::string do_grouping() const;
    virtual std::u16string do_truename() const;
    virtual std::u16string do_falsename() const;
};

// Defined for every type of character, but each module would have an identity of its own.
template <>
ZT_ORVEX_EXPORT std::locale::id std::num_put<char16_t>::id;
#endif
