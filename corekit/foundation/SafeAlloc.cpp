#include "corekit/foundation/SafeAlloc.h"

#include "corekit/framework/Exception.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {
// A request for nothing is a block too.
std::size_t byteCount(int size)
{
    if (size < 0) AfxThrowMemoryException();
    return static_cast<std::size_t>(std::max(size, 1));
}

template <class Char>
Char* duplicate(const Char* text, const char* file, int line)
{
    static constexpr Char empty = 0;
    if (!text) text = &empty;
    const std::size_t bytes = (std::char_traits<Char>::length(text) + 1) * sizeof(Char);
    if (bytes > INT_MAX) AfxThrowMemoryException();
    return static_cast<Char*>(__safe_duplicate(text, static_cast<int>(bytes), file, line));
}
} // namespace

void* __safe_malloc(int size, const char*, int)
{
    void* block = std::malloc(byteCount(size));
    if (!block) AfxThrowMemoryException();
    return block;
}

void safe_free(void* block) { std::free(block); }

void* __safe_realloc(void* block, int size, const char*, int)
{
    void* moved = std::realloc(block, byteCount(size));
    if (!moved) AfxThrowMemoryException();
    return moved;
}

void* __safe_duplicate(const void* source, int size, const char* file, int line)
{
    void* block = __safe_malloc(size, file, line);
    if (size > 0) std::memcpy(block, source, static_cast<std::size_t>(size));
    return block;
}

char* __safe_dupstring(const char* text, const char* file, int line) { return duplicate(text, file, line); }
WCHAR* __safe_dupstring(const WCHAR* text, const char* file, int line) { return duplicate(text, file, line); }
