// unload LIBRARY [OWNER]: fails unless the library can be loaded, used, unloaded and loaded again, and
// the owner of the patterns of literals, by default the library itself, stays loaded while a thread
// has one.
//
// The program isn't linked against the library: that would keep it loaded.
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <locale>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_set>

namespace {

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}

template <class Function>
Function* find(void* library, const char* mangledName) {
    void* const function = dlsym(library, mangledName);
    if (function == nullptr) fail(dlerror());
    return reinterpret_cast<Function*>(function);
}

/// Has the library build what it builds on first use.
void use(void* library) {
    const auto getLocale = find<const std::locale&()>(library, "_ZN2zt5orvex15getChar16LocaleEv");
    if (!(getLocale() == getLocale())) fail("the locale differs from itself");
    const auto getNames = find<const std::unordered_set<std::u16string>&()>(
        library, "_ZN2zt5orvex22getRestrictedExternalsB5cxx11Ev");
    if (getNames().size() != 18) fail("restricted externals are missing");
}

/// Has the calling thread make a pattern of literals, which it destroys when it ends.
void makePatternOfThisThread(void* library) {
    const auto validate = find<int(std::string_view)>(
        library, "_ZN2zt5orvex8internal21validateDoubleLiteralESt17basic_string_viewIcSt11char_"
                 "traitsIcEE");
    if (validate("1.5") != 0) fail("1.5 isn't valid");
}

bool isLoaded(const char* name) {
    void* const library = dlopen(name, RTLD_NOW | RTLD_NOLOAD);
    if (library != nullptr) dlclose(library);
    return library != nullptr;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 3) fail("usage: unload LIBRARY [OWNER]");
    const char* const name = argv[1];
    const char* const owner = argv[argc - 1];
    for (int round = 0; round < 2; ++round) {
        if (isLoaded(name)) fail("loaded before dlopen");
        void* const library = dlopen(name, RTLD_NOW);
        if (library == nullptr) fail(dlerror());
        if (!isLoaded(name)) fail("not loaded after dlopen");
        use(library);
        std::thread([library] { makePatternOfThisThread(library); }).join();
        if (dlclose(library) != 0) fail(dlerror());
        if (isLoaded(name) || isLoaded(owner)) fail("still loaded after dlclose");
    }

    // The destructor of this thread's pattern needs the library's code.
    void* const library = dlopen(name, RTLD_NOW);
    if (library == nullptr) fail(dlerror());
    makePatternOfThisThread(library);
    if (dlclose(library) != 0) fail(dlerror());
    if (!isLoaded(owner)) fail("unloaded while a thread has a pattern");
    return 0;
}
