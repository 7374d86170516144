// unload LIBRARY [OWNER]: fails unless the library can be loaded, used, unloaded and loaded again, and
// the owner of the patterns of literals, by default the library itself, stays loaded while a thread
// has one.
//
// The program isn't linked against the library: that would keep it loaded.
#include "exports/LoadedLibrary.h"

#include <cstdio>
#include <locale>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_set>

namespace {

using zt::orvex::testing::find;
using zt::orvex::testing::isLoaded;
using zt::orvex::testing::load;
using zt::orvex::testing::unload;

// The mangled names have the standard library's own namespace in them.
#if defined(_LIBCPP_VERSION)
constexpr const char* GET_RESTRICTED_EXTERNALS = "_ZN2zt5orvex22getRestrictedExternalsEv";
constexpr const char* VALIDATE_DOUBLE_LITERAL =
    "_ZN2zt5orvex8internal21validateDoubleLiteralENSt3__117basic_string_viewIcNS2_11char_"
    "traitsIcEEEE";
#else
constexpr const char* GET_RESTRICTED_EXTERNALS = "_ZN2zt5orvex22getRestrictedExternalsB5cxx11Ev";
constexpr const char* VALIDATE_DOUBLE_LITERAL =
    "_ZN2zt5orvex8internal21validateDoubleLiteralESt17basic_string_viewIcSt11char_traitsIcEE";
#endif

void expect(bool holds, const char* otherwise) {
    if (!holds) throw std::runtime_error(otherwise);
}

/// Has the library build what it builds on first use.
void use(const std::string& library) {
    const auto getLocale = find<const std::locale&()>(library, "_ZN2zt5orvex15getChar16LocaleEv");
    expect(getLocale() == getLocale(), "the locale differs from itself");
    const auto getNames =
        find<const std::unordered_set<std::u16string>&()>(library, GET_RESTRICTED_EXTERNALS);
    expect(getNames().size() == 18, "restricted externals are missing");
}

/// Has the calling thread make a pattern of literals, which it destroys when it ends.
void makePatternOfThisThread(const std::string& library) {
    const auto validate = find<int(std::string_view)>(library, VALIDATE_DOUBLE_LITERAL);
    expect(validate("1.5") == 0, "1.5 isn't valid");
}

void loadUseAndUnload(const std::string& library, const std::string& owner) {
    expect(!isLoaded(library), "loaded before it was");
    load(library);
    expect(isLoaded(library), "not loaded");
    use(owner);
    std::thread([&] { makePatternOfThisThread(owner); }).join();
    unload(library);
    expect(!isLoaded(library) && !isLoaded(owner), "still loaded");
}

/// The destructor of this thread's pattern needs the library's code. On Windows, threads share one
/// pattern, which goes with the library.
void unloadWithAPattern(const std::string& library, const std::string& owner) {
    load(library);
    makePatternOfThisThread(owner);
    unload(library);
#if !defined(_WIN32)
    expect(isLoaded(owner), "unloaded while a thread has a pattern");
#endif
}

} // namespace

int main(int argc, char** argv) {
    try {
        expect(argc == 2 || argc == 3, "usage: unload LIBRARY [OWNER]");
        for (int round = 0; round < 2; ++round)
            loadUseAndUnload(argv[1], argv[argc - 1]);
        unloadWithAPattern(argv[1], argv[argc - 1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
