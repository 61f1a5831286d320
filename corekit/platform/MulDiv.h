// A number times a fraction.
#pragma once

#include <cstdint>
#include <cstdlib>

// number * numerator / denominator, rounded to the nearest, halves away from 0; the product has 64 bits. -1
// for a denominator of 0 and for a result beyond 32 bits.
constexpr int MulDiv(int number, int numerator, int denominator)
{
    if (denominator == 0) return -1;
    const std::int64_t product = std::int64_t{number} * numerator;
    const std::int64_t divisor = denominator;
    const std::int64_t half = (divisor < 0 ? -divisor : divisor) / 2;
    const std::int64_t result = (product < 0 ? product - half : product + half) / divisor;
    return result < INT32_MIN || result > INT32_MAX ? -1 : static_cast<int>(result);
}
