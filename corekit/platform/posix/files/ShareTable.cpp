#include "corekit/platform/posix/files/ShareTable.h"

#include "corekit/platform/Files.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <vector>

namespace corekit::detail {
namespace {

struct Table {
    std::mutex mutex;
    std::map<FileId, std::vector<FileUse>> uses;
};

Table& table()
{
    static auto* const only = new Table; // outlives every static object that may still hold a file
    return *only;
}

bool allows(const FileUse& holder, const FileUse& other)
{
    const DWORD needed = ((other.access & GENERIC_READ) != 0 ? FILE_SHARE_READ : 0) |
                         ((other.access & GENERIC_WRITE) != 0 ? FILE_SHARE_WRITE : 0);
    return (needed & ~holder.share) == 0;
}

} // namespace

bool claimFile(const FileId& id, const FileUse& use)
{
    const std::lock_guard lock(table().mutex);
    std::vector<FileUse>& uses = table().uses[id];
    if (!std::ranges::all_of(uses,
                             [&](const FileUse& other) { return allows(other, use) && allows(use, other); }))
        return false;
    uses.push_back(use);
    return true;
}

void releaseFile(const FileId& id, const FileUse& use)
{
    const std::lock_guard lock(table().mutex);
    const auto entry = table().uses.find(id);
    std::vector<FileUse>& uses = entry->second;
    uses.erase(std::ranges::find(uses, use));
    if (uses.empty()) table().uses.erase(entry);
}

bool mayDeleteFile(const FileId& id)
{
    const std::lock_guard lock(table().mutex);
    const auto entry = table().uses.find(id);
    return entry == table().uses.end() || std::ranges::all_of(entry->second, [](const FileUse& use) {
               return (use.share & FILE_SHARE_DELETE) != 0;
           });
}

} // namespace corekit::detail
