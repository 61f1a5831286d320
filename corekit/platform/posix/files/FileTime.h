// Between the machine's times and file times.
#pragma once

#include "corekit/platform/Types.h"

#include <cstdint>
#include <ctime>

namespace corekit::detail {

inline constexpr std::int64_t fileTimeAt1970 = 116'444'736'000'000'000; // 100-nanosecond steps from 1601

inline FILETIME fileTimeOf(std::int64_t seconds, std::int64_t nanoseconds)
{
    const auto steps = static_cast<std::uint64_t>(seconds * 10'000'000 + nanoseconds / 100 + fileTimeAt1970);
    return {static_cast<DWORD>(steps), static_cast<DWORD>(steps >> 32)};
}

inline std::int64_t stepsSince1970(const FILETIME& time)
{
    const auto steps = static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return static_cast<std::int64_t>(steps) - fileTimeAt1970;
}

inline timespec timespecOf(const FILETIME& time)
{
    const std::int64_t steps = stepsSince1970(time);
    const std::int64_t part = (steps % 10'000'000 + 10'000'000) % 10'000'000;
    return {static_cast<std::time_t>((steps - part) / 10'000'000), static_cast<long>(part * 100)};
}

} // namespace corekit::detail
