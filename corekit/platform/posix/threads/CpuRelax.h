// A breath between two looks at memory that another processor is about to change.
#pragma once

namespace corekit::detail {

inline void cpuRelax()
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#elif defined(__aarch64__)
    asm volatile("isb" ::: "memory");
#endif
}

} // namespace corekit::detail
