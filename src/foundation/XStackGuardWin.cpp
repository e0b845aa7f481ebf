// The guard value that functions compare on their way out, and their end when it was overwritten; in place
// of libssp's, which starts a whole cryptographic provider for it: that costs every process of a batch
// several milliseconds per library.
#include <cstdint>
#include <windows.h>

extern "C" {

std::uintptr_t __stack_chk_guard = 0;

BOOLEAN NTAPI SystemFunction036(void* bytes, ULONG count); // RtlGenRandom's name in ADVAPI32

// Functions that check the guard end before it changes, or begin after.
__attribute__((constructor, no_stack_protector)) static void SetGuard() {
    if (!SystemFunction036(&__stack_chk_guard, sizeof(__stack_chk_guard)))
        __stack_chk_guard = __builtin_ia32_rdtsc();
    __stack_chk_guard &= ~std::uintptr_t{0xFF}; // a text that runs over ends before it
}

[[noreturn]] __attribute__((no_stack_protector)) void __stack_chk_fail() {
    __builtin_trap(); // nothing of this process can be trusted any more
}
}
