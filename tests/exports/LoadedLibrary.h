#pragma once

// Loading and unloading a shared library, on either system. Names of libraries are whole paths.

#include <stdexcept>
#include <string>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace zt::orvex::testing {

#if defined(_WIN32)

// A module is known by the name of its file alone, and one that it loads has functions of its own.
inline HMODULE moduleOf(const std::string& path) {
    return GetModuleHandleA(path.substr(path.find_last_of("/\\") + 1).c_str());
}

inline bool isLoaded(const std::string& path) { return moduleOf(path) != nullptr; }

inline void load(const std::string& path) {
    if (LoadLibraryA(path.c_str()) == nullptr)
        throw std::runtime_error("error " + std::to_string(GetLastError()));
}

inline void unload(const std::string& path) { FreeLibrary(moduleOf(path)); }

template <class Function>
Function* find(const std::string& path, const char* mangledName) {
    const FARPROC function = GetProcAddress(moduleOf(path), mangledName);
    if (function == nullptr) throw std::runtime_error(mangledName);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(function));
}

#else

inline bool isLoaded(const std::string& path) {
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (library != nullptr) dlclose(library);
    return library != nullptr;
}

inline void load(const std::string& path) {
    if (dlopen(path.c_str(), RTLD_NOW) == nullptr) throw std::runtime_error(dlerror());
}

inline void unload(const std::string& path) {
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    dlclose(library); // what the line above opened
    if (dlclose(library) != 0) throw std::runtime_error(dlerror());
}

template <class Function>
Function* find(const std::string& path, const char* mangledName) {
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    void* const function = dlsym(library, mangledName);
    if (function == nullptr) throw std::runtime_error(dlerror());
    dlclose(library);
    return reinterpret_cast<Function*>(function);
}

#endif

} // namespace zt::orvex::testing
