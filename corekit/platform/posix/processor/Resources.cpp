#include "corekit/platform/Resources.h"

#include <atomic>

namespace {
constinit std::atomic<ResourceReader> installed = nullptr;
}

void SetResourceReader(ResourceReader reader) { installed = reader; }

bool UseResource(const char* name, WORD type, const std::function<void(std::span<const std::byte>)>& use)
{
    const ResourceReader reader = installed;
    return reader && name && reader(name, MAKEINTRESOURCEA(type), use);
}
