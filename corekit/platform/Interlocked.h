// Atomic operations on plain integers. Each is a full barrier.
#pragma once

#include "corekit/platform/Types.h"

#include <atomic>

// Add or subtract one; the new value.
inline LONG InterlockedIncrement(LONG* target) { return std::atomic_ref(*target).fetch_add(1) + 1; }
inline LONG InterlockedDecrement(LONG* target) { return std::atomic_ref(*target).fetch_sub(1) - 1; }

// Store or add; the old value.
inline LONG InterlockedExchange(LONG* target, LONG value) { return std::atomic_ref(*target).exchange(value); }
inline LONG InterlockedExchangeAdd(LONG* target, LONG value) { return std::atomic_ref(*target).fetch_add(value); }

// Stores `value` if the target equals `comparand`; the old value either way.
inline LONG InterlockedCompareExchange(LONG* target, LONG value, LONG comparand)
{
    std::atomic_ref(*target).compare_exchange_strong(comparand, value);
    return comparand;
}
