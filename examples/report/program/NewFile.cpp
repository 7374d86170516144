#include "report/program/NewFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#if defined(_WIN32)
#include <io.h>
#include <windows.h>
#else
#include <string>
#include <unistd.h>
#endif

namespace ostrel::report {

namespace fs = std::filesystem;

#if defined(_WIN32)

// Windows makes the full path \\.\NUL of the name NUL, whatever folder precedes it.
bool hasNameOfDevice(const fs::path& path) {
    wchar_t full[MAX_PATH];
    const DWORD size = GetFullPathNameW(path.c_str(), MAX_PATH, full, nullptr);
    return size != 0 && size < MAX_PATH && std::wstring_view(full, size).substr(0, 4) == L"\\\\.\\";
}

int objectionToWriting(const fs::path& path) {
    constexpr int TO_WRITE = 2;
    return _waccess(path.c_str(), TO_WRITE) == 0 ? 0 : errno;
}

// Permissions are those of the folder here.
int createNewFile(const fs::path& path, const fs::path&) {
    const int descriptor =
        _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
    if (descriptor == -1) return errno;
    _close(descriptor);
    return 0;
}

unsigned long processNumber() { return GetCurrentProcessId(); }

#else

namespace {

void copyPermissions(int descriptor, const fs::path& former) {
    constexpr mode_t PERMISSIONS = 07777;
    struct stat status {};
    if (stat(former.c_str(), &status) != 0) return;
    // A file system without permissions has none to keep.
    if (fchmod(descriptor, status.st_mode & PERMISSIONS) != 0) errno = 0;
}

} // namespace

bool hasNameOfDevice(const fs::path& path) {
    const std::string& name = path.native();
    return name.rfind("/dev/", 0) == 0 || name.rfind("/proc/", 0) == 0;
}

int objectionToWriting(const fs::path& path) { return access(path.c_str(), W_OK) == 0 ? 0 : errno; }

int createNewFile(const fs::path& path, const fs::path& former) {
    constexpr mode_t NEW_FILE = 0666;
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NEW_FILE);
    if (descriptor == -1) return errno;
    copyPermissions(descriptor, former);
    close(descriptor);
    return 0;
}

unsigned long processNumber() { return static_cast<unsigned long>(getpid()); }

#endif

} // namespace ostrel::report
