#include <zt_orvex/support/PageSize.h>

#if defined(_WIN32)
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace zt::orvex::internal {

namespace {

std::size_t askForAllocationGranularity() {
#if defined(_WIN32)
    SYSTEM_INFO info;
    GetSystemInfo(&info);
    return info.dwAllocationGranularity;
#else
    return static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
#endif
}

const std::size_t savedGranularity = askForAllocationGranularity();

} // namespace

std::size_t getPageSize() {
    // Zero until the initialisers of this file have run; those of another file may call earlier.
    static const std::size_t pageSize =
        savedGranularity != 0 ? savedGranularity : askForAllocationGranularity();
    return pageSize;
}

} // namespace zt::orvex::internal
