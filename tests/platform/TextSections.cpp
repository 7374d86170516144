// Pragmas, quoting, pools of strings, counters and the names of restricted externals.
#include "platform/Lines.h"
#include "platform/Sections.h"

#include <zt_orvex/pragma/Pragma.h>
#include <zt_orvex/pragma/PragmaKind.h>
#include <zt_orvex/support/AllocatorStatistics.h>
#include <zt_orvex/support/PageSize.h>
#include <zt_orvex/support/Quote.h>
#include <zt_orvex/support/RestrictedExternals.h>
#include <zt_orvex/support/SmallString.h>
#include <zt_orvex/support/StringPool.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace zt::orvex::testing {

namespace {

const char16_t* const COMMENTS[] = {
    u"",
    u"%",
    u"%#",
    u"%# ",
    u"#",
    u"% #ok",
    u"%#ok",
    u"%#ok A B",
    u"%#ok<A,B>",
    u"x#ok",
    u"%# \tok",
    u"%#OK",
    u"%#codegen",
    u"%#zel a  b ",
    u"%#function f",
    u"%#internal",
    u"%#vun,x",
    u"%#obfuscate\t1\t",
    u"%#TestStandard (1)",
    u"%#teststandard",
    u"%#UNRECOGNIZED",
    u"%#other w",
    u"%#ok1",
    u"%#ok_",
    u"%#1ok",
    u"%#ok\u00E9",
    u"%#\u00E9ok",
    u"%#ok\n",
    u"%#ok \U0001F600",
    u"%#ok \xD800",
    u"%#codegen   -float  ",
    u"%#okay",
    u"%#o",
    u"%%#ok",
    u"%#ok%#ok",
};

std::string textOf(const Pragma& pragma) {
    std::ostringstream printed;
    printed << pragma;
    return std::to_string(static_cast<int>(pragma.getKind())) + " at " +
           std::to_string(pragma.getSourcePosition()) + " name " +
           shown(std::u16string_view(pragma.getPragmaName())) + " text " +
           shown(pragma.getPragmaText()) + " arguments " +
           shown(std::u16string_view(pragma.getArgumentsText())) + " trimmed " +
           shown(std::u16string_view(pragma.getTrimmedArgumentsText())) + " prints " +
           shown(printed.str());
}

void probeQuote(std::u16string_view text, char16_t quoteChar) {
    const std::string name =
        "quoted with " + shown(std::u16string_view(&quoteChar, 1)) + " " + shown(text);
    const std::u16string quoted =
        quote(boost::basic_string_ref<char16_t>(text.data(), text.size()), quoteChar);
    line(name, shown(std::u16string_view(quoted)));
    std::u16string back = quoted;
    back.resize(unquote(back.data(), back.size(), quoteChar));
    line(name + " and back", shown(std::u16string_view(back)) + " same " + shown(back == text));
}

void probeUnquote(std::u16string text, char16_t quoteChar) {
    const std::string name =
        "unquoted with " + shown(std::u16string_view(&quoteChar, 1)) + " " + shown(text);
    const std::size_t length = unquote(text.data(), text.size(), quoteChar);
    line(name, length > text.size() ? "the largest size"
                                    : std::to_string(length) + " " +
                                          shown(std::u16string_view(text.data(), length)));
}

std::string textOf(const AllocatorStatistics& counts) {
    return std::to_string(counts.getNumberOfCallsToAllocate()) + " " +
           std::to_string(counts.getTotalBytesRequested()) + " " +
           std::to_string(counts.getNumberOfSystemMemoryAllocations()) + " " +
           std::to_string(counts.getTotalBytesAllocatedFromSystem());
}

} // namespace

void probePragmas() {
    unsigned position = 0;
    for (const std::u16string_view text : COMMENTS) {
        line("pragma " + shown(text), outcome([&] {
                 const auto pragma = parsePragma(text, position++ * 1000003U);
                 return pragma ? textOf(*pragma) : std::string("none");
             }));
    }
    for (int value = 0; value <= 12; ++value) {
        line("pragma kind " + std::to_string(value), outcome([&] {
                 return shown(
                     std::u16string_view(pragmaKindToString(static_cast<PragmaKind>(value))));
             }));
    }
    for (const char16_t* word : {u"codegen", u"ok", u"Ok", u"", u"UNRECOGNIZED", u"none"}) {
        line("kind of " + shown(std::u16string_view(word)),
             std::to_string(static_cast<int>(pragmaKindFromString(word))));
    }
    line("pragma without a word", outcome([] {
             const Pragma pragma(static_cast<PragmaKind>(2), u"%#ok", 0, 4);
             return textOf(pragma);
         }));
}

void probeQuoting() {
    const std::u16string_view texts[] = {
        u"", u"a", u"it's", u"''", u"say \"hi\"", u"\u00E9\u2028", u"\xD800'", u"a\\n\n", u"'a'b'"};
    for (const std::u16string_view text : texts) {
        for (const char16_t quoteChar : {u'\'', u'"', u'\u00E9'})
            probeQuote(text, quoteChar);
    }
    for (const char16_t* text :
         {u"", u"'", u"''", u"'''", u"''''", u"'a", u"a'", u"'a''b'", u"\"a\"", u"'a'b'", u"abc",
          u"f('x')", u")'a'", u"{[('a'}'b'", u"'['a']'"}) {
        probeUnquote(text, u'\'');
        probeUnquote(text, u'"');
        probeUnquote(text, u'\0');
    }
}

void probePools() {
    internal::StringPool pool;
    std::vector<std::string> keys;
    for (std::size_t length = 0; length <= 18; ++length) {
        std::string key;
        for (std::size_t i = 0; i < length; ++i)
            key += static_cast<char>(i % 5 == 4 ? 0xE0 + i : 'a' + i);
        keys.push_back(key);
    }
    keys.push_back("x");
    keys.push_back(std::string("a\0", 2));
    std::vector<std::u16string> values;
    for (std::size_t i = 0; i < keys.size(); ++i)
        values.push_back(u"value " + std::u16string(i, u'v'));
    for (std::size_t i = 0; i < keys.size(); i += 2)
        pool.poolIfShort(keys[i], values[i]);
    for (const std::string& key : keys) {
        const auto found = pool.lookup(key);
        line("pooled " + shown(std::string_view(key)),
             found ? shown(std::u16string_view(*found)) : "none");
        if (key.size() > internal::SmallString::MAX_LENGTH) continue;
        const internal::SmallString small(key);
        line("small string " + shown(std::string_view(key)),
             shown(std::string_view(small.str())) + " hash " + hex(small.hashCode()));
    }
    std::vector<std::string> names;
    for (const std::u16string& name : getRestrictedExternals())
        names.push_back(shown(std::u16string_view(name)));
    std::sort(names.begin(), names.end());
    for (const std::string& name : names)
        line("restricted external", name);
}

void probeCounters() {
    AllocatorStatistics a;
    AllocatorStatistics b;
    line("fresh counters", textOf(a) + " equal " + shown(a == b));
    a.recordAllocationRequest(0);
    line("a request of nothing", textOf(a) + " equal " + shown(a == b));
    b.recordSystemMemoryAllocation(65536);
    b.recordSystemMemoryAllocation(~std::size_t{0});
    line("an overflow", textOf(b));
    line("the sum", textOf(a + b) + " of " + textOf(a) + " and " + textOf(b));
    for (std::size_t bytes = 1; bytes < 2000000; bytes *= 7) {
        a.recordAllocationRequest(bytes);
        a.recordSystemMemoryAllocation(bytes * 3);
        line("after " + std::to_string(bytes) + " bytes", textOf(a));
    }
    b = a;
    line("a copy", textOf(b) + " different " + shown(a != b));
    const std::size_t page = internal::getPageSize();
    line("the unit of address space is a power of two",
         shown((page & (page - 1)) == 0 && page > 0));
}

} // namespace zt::orvex::testing
