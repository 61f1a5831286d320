// Atomic operations on 32-bit counters and on pointers shared between threads. Each is a full barrier.
//
//     static LONG users = 0;
//     if (InterlockedIncrement(&users) == 1) Start();
//     ...
//     if (InterlockedDecrement(&users) == 0) Stop();
#pragma once

#include "corekit/platform/Types.h"

#include <atomic>

namespace corekit::detail {
// The target as an atomic, in place.
inline std::atomic_ref<LONG> shared(volatile LONG* target)
{
    return std::atomic_ref<LONG>(const_cast<LONG&>(*target));
}
} // namespace corekit::detail

// Both return the value after the step.
inline LONG InterlockedIncrement(volatile LONG* target)
{
    return corekit::detail::shared(target).fetch_add(1) + 1;
}
inline LONG InterlockedDecrement(volatile LONG* target)
{
    return corekit::detail::shared(target).fetch_sub(1) - 1;
}

// Stores the value. This and the next return the value before the step.
inline LONG InterlockedExchange(volatile LONG* target, LONG value)
{
    return corekit::detail::shared(target).exchange(value);
}
// Adds the value, modulo 2^32.
inline LONG InterlockedExchangeAdd(volatile LONG* target, LONG value)
{
    return corekit::detail::shared(target).fetch_add(value);
}

// Stores value if the target holds comparand. Returns what the target held.
inline LONG InterlockedCompareExchange(volatile LONG* target, LONG value, LONG comparand)
{
    corekit::detail::shared(target).compare_exchange_strong(comparand, value);
    return comparand;
}
