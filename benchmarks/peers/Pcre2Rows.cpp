// PCRE2's 16-bit matcher, compiled to machine code, in the validation rows of Literals.cpp.

#include "support/LiteralRows.h"

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

#include <memory>

namespace zt::orvex::benchmarks {
namespace {

struct FreeCode {
    void operator()(pcre2_code* code) const { pcre2_code_free(code); }
};
struct FreeMatch {
    void operator()(pcre2_match_data* match) const { pcre2_match_data_free(match); }
};

void validate(benchmark::State& state, LiteralKind kind) {
    const std::string narrow = "\\A(?:" + std::string(patternOf(kind, true)) + ")\\z";
    const std::u16string pattern(narrow.begin(), narrow.end());
    const auto units = [](const std::u16string& text) {
        return reinterpret_cast<PCRE2_SPTR>(text.data());
    };
    int error = 0;
    PCRE2_SIZE place = 0;
    const std::unique_ptr<pcre2_code, FreeCode> code(
        pcre2_compile(units(pattern), pattern.size(), PCRE2_ANCHORED, &error, &place, nullptr));
    pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE);
    const std::unique_ptr<pcre2_match_data, FreeMatch> match(
        pcre2_match_data_create_from_pattern(code.get(), nullptr));
    measureValidation<char16_t>(state, kind, [&](const std::u16string& text) {
        return pcre2_jit_match(code.get(), units(text), text.size(), 0, 0, match.get(), nullptr) >=
               0;
    });
}

[[maybe_unused]] const bool registered = [] {
    for (const LiteralKind kind : ALL_LITERAL_KINDS) {
        registerRow(std::string("validate/pcre2_16_jit/") + nameOf(kind),
                    [=](benchmark::State& state) { validate(state, kind); });
    }
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
