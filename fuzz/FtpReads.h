// Bytes as a server sends them: cut into reads, the first byte of the input saying how.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

template <class Use>
void EachRead(const unsigned char* data, std::size_t size, Use use)
{
    if (size == 0) return;
    const std::size_t step = data[0] == 0 ? size : data[0];
    for (std::size_t at = 1; at < size; at += step)
        use(std::string_view(reinterpret_cast<const char*>(data) + at, std::min(step, size - at)));
}
