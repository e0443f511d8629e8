#include "runtime/big_stack.h"

#include <algorithm>
#include <exception>
#include <new>
#include <pthread.h>
#include <sys/mman.h>
#include <ucontext.h>

namespace tarn {

namespace detail {
constinit std::uintptr_t stackLimit = 0;
}

namespace {

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer unpoisons a stack when an exception passes, but only up to 64 MB.
constexpr std::size_t wantedSize = std::size_t(60) << 20;
#else
constexpr std::size_t wantedSize = std::size_t(512) << 20;
#endif
constexpr std::size_t smallestSize = std::size_t(16) << 20;
constexpr std::size_t ordinarySize = std::size_t(64) << 20; ///< at most, of a thread's own stack
constexpr std::size_t guardSize = 64 * 1024;

struct StackMemory {
    void* base = nullptr; ///< null if the system gave none
    std::size_t size = 0;
};

/// Takes less where the system limits the address space of a process.
StackMemory mapStack() {
    for (std::size_t size = wantedSize; size >= smallestSize; size /= 2) {
        int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_STACK;
        void* base = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, flags, -1, 0);
        if (base == MAP_FAILED) continue;
        ::mprotect(base, guardSize, PROT_NONE);
        ::madvise(base, size, MADV_NOHUGEPAGE); // the first touch need not clear two megabytes
        return {base, size};
    }
    return {};
}

/// One excursion to the big stack and back.
struct Excursion {
    void (*function)(void*);
    void* argument;
    std::exception_ptr thrown;
};
Excursion* current = nullptr;

/// An exception cannot unwind through the switch, so it is carried over by hand.
void enterAway() {
    Excursion& excursion = *current;
    try {
        excursion.function(excursion.argument);
    } catch (...) {
        excursion.thrown = std::current_exception();
    }
}

#if defined(__SANITIZE_ADDRESS__)
/// The sanitizer knows the stacks of threads only.
void travel(const StackMemory& memory) {
    pthread_attr_t attributes;
    pthread_t thread{};
    ::pthread_attr_init(&attributes);
    ::pthread_attr_setstack(&attributes, memory.base, memory.size);
    auto start = [](void*) -> void* {
        enterAway();
        return nullptr;
    };
    if (::pthread_create(&thread, &attributes, start, nullptr) != 0) throw std::bad_alloc();
    ::pthread_join(thread, nullptr);
    ::pthread_attr_destroy(&attributes);
}
#else
void travel(const StackMemory& memory) {
    ucontext_t home;
    ucontext_t away;
    ::getcontext(&away);
    away.uc_stack.ss_sp = memory.base;
    away.uc_stack.ss_size = memory.size;
    away.uc_link = &home;
    ::makecontext(&away, enterAway, 0);
    ::swapcontext(&home, &away);
}
#endif

} // namespace

std::uintptr_t detail::findStackLimit() {
    pthread_attr_t attributes;
    void* base = nullptr;
    std::size_t size = 0;
    if (::pthread_getattr_np(::pthread_self(), &attributes) == 0) {
        ::pthread_attr_getstack(&attributes, &base, &size);
        ::pthread_attr_destroy(&attributes);
    }
    // Without an answer, what every system gives; without a limit, no more than is sure to be free below.
    auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    std::uintptr_t lowest = base ? reinterpret_cast<std::uintptr_t>(base) : here - (std::uintptr_t(1) << 20);
    return stackLimit = std::max(lowest, here - ordinarySize) + guardSize;
}

void runOnBigStack(void (*function)(void*), void* argument) {
    StackMemory memory = mapStack();
    if (!memory.base) return function(argument);
    std::uintptr_t limitBefore = detail::stackLimit;
    detail::stackLimit = reinterpret_cast<std::uintptr_t>(memory.base) + guardSize;
    Excursion excursion{function, argument, {}};
    current = &excursion;
    travel(memory);
    current = nullptr;
    detail::stackLimit = limitBefore;
    ::munmap(memory.base, memory.size);
    if (excursion.thrown) std::rethrow_exception(excursion.thrown);
}

} // namespace tarn
