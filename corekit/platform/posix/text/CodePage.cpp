#include "corekit/platform/posix/text/CodePage.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <vector>

namespace corekit::detail {
namespace {

std::unique_ptr<const CodePage> makePage(UINT number)
{
    const auto names = codePageNames();
    const auto row = std::ranges::lower_bound(names, number, {}, &CodePageName::number);
    if (row == names.end() || row->number != number) return nullptr;
    switch (row->kind) {
    case ConverterKind::own:
        return makeUtf8Page();
    case ConverterKind::iconv:
        return makeIconvPage(*row);
    default:
        return makeIcuPage(*row);
    }
}

bool isThere(const CodePageName& row)
{
    switch (row.kind) {
    case ConverterKind::own:
        return true;
    case ConverterKind::iconv:
        return hasIconvConverter(row.name);
    default:
        return hasIcuConverter(row.name);
    }
}

// Pages once asked for; entries are only ever added, so that looking needs no lock.
struct Entry {
    UINT number;
    std::unique_ptr<const CodePage> page;
    const Entry* next;
};

constinit std::atomic<const Entry*> firstEntry{nullptr};

const Entry* findEntry(UINT number)
{
    const Entry* entry = firstEntry.load(std::memory_order_acquire);
    while (entry != nullptr && entry->number != number) entry = entry->next;
    return entry;
}

} // namespace

const CodePage* findCodePage(UINT number)
{
    if (const Entry* const known = findEntry(number)) return known->page.get();
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    if (const Entry* const known = findEntry(number)) return known->page.get();
    auto page = makePage(number);
    if (!page) return nullptr; // not kept: numbers from outside must not fill memory
    const CodePage* const found = page.get();
    auto entry =
        std::make_unique<Entry>(Entry{number, std::move(page), firstEntry.load(std::memory_order_relaxed)});
    firstEntry.store(entry.release(), std::memory_order_release);
    return found;
}

std::span<const UINT> codePageNumbers()
{
    static const std::vector<UINT> numbers = [] {
        std::vector<UINT> there;
        for (const CodePageName& row : codePageNames())
            if (isThere(row)) there.push_back(row.number);
        return there;
    }();
    return numbers;
}

} // namespace corekit::detail
