#pragma once

#include "corekit/platform/InputTest.h"

#include <chrono>

// Whether the condition comes to hold within a minute, in which the windows go on.
template <class Condition>
bool Becomes(Condition condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (std::chrono::steady_clock::now() < end) {
        if (condition()) return true;
        corekit::test::RunFor(5);
    }
    return false;
}
