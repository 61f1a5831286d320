#include "corekit/platform/DeviceFolders.h"

#include <mutex>

namespace {
std::mutex lock;

DeviceFolders& current()
{
    static DeviceFolders folders;
    return folders;
}
} // namespace

void SetDeviceFolders(const DeviceFolders& folders)
{
    const std::lock_guard guard(lock);
    current() = folders;
}

DeviceFolders GetDeviceFolders()
{
    const std::lock_guard guard(lock);
    return current();
}
