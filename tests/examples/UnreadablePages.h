#pragma once

#include <cstddef>
#include <string_view>

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/mman.h>
#endif

namespace ostrel::testing {

/// Address space that can't be read: touching it ends the process. It is null if there is none left.
class UnreadablePages {
public:
#if defined(_WIN32)
    explicit UnreadablePages(std::size_t bytes)
        : size(bytes), pages(VirtualAlloc(nullptr, bytes, MEM_RESERVE, PAGE_NOACCESS)) {}
    ~UnreadablePages() {
        if (pages != nullptr) VirtualFree(pages, 0, MEM_RELEASE);
    }
#else
    explicit UnreadablePages(std::size_t bytes)
        : size(bytes), pages(mmap(nullptr, bytes, PROT_NONE,
                                  MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)) {
        if (pages == MAP_FAILED) pages = nullptr;
    }
    ~UnreadablePages() {
        if (pages != nullptr) munmap(pages, size);
    }
#endif
    UnreadablePages(const UnreadablePages&) = delete;
    UnreadablePages& operator=(const UnreadablePages&) = delete;

    std::string_view text() const { return {static_cast<const char*>(pages), size}; }

private:
    std::size_t size;
    void* pages;
};

} // namespace ostrel::testing
