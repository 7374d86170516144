#include "limits/StackProbe.h"

#include <algorithm>
#include <csignal>
#include <exception>
#include <pthread.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zt::orvex::testing {

namespace {

enum ChildStatus { RETURNED = 0, THREW = 1, NO_THREAD = 2 };

void* runOnThread(void* work) {
    try {
        (*static_cast<const std::function<void()>*>(work))();
    } catch (const std::exception&) {
        _exit(THREW);
    }
    return nullptr;
}

/// Runs in the child. Frames are smaller than the guard, so that none of them can step over it.
[[noreturn]] void runInChild(std::size_t bytes, const std::function<void()>& work) {
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setguardsize(&attributes, MIB);
    pthread_attr_setstacksize(&attributes, bytes);
    pthread_t thread;
    const bool isRunning = pthread_create(&thread, &attributes, runOnThread,
                                          const_cast<std::function<void()>*>(&work)) == 0;
    if (!isRunning) _exit(NO_THREAD);
    pthread_join(thread, nullptr);
    _exit(RETURNED);
}

} // namespace

bool fitsInStack(std::size_t bytes, const std::function<void()>& work) {
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no child process");
    if (child == 0) runInChild(bytes, work);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == RETURNED) return true;
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGSEGV) return false;
    throw std::runtime_error("the child ended with wait status " + std::to_string(status));
}

std::size_t largestThat(const std::function<bool(std::size_t)>& holds, std::size_t most,
                        std::size_t percent) {
    std::size_t good = 0;
    std::size_t bad = 16;
    while (bad < most && holds(bad)) {
        good = bad;
        bad *= 2;
    }
    if (bad >= most) {
        if (holds(most)) return most;
        bad = most;
    }
    while (bad - good > std::max<std::size_t>(1, good * percent / 100)) {
        const std::size_t middle = good + (bad - good) / 2;
        (holds(middle) ? good : bad) = middle;
    }
    return good;
}

} // namespace zt::orvex::testing
