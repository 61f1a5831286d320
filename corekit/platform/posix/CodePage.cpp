#include "corekit/platform/posix/CodePage.h"

#include "corekit/platform/CodePages.h"
#include "corekit/platform/posix/CodePageNames.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <string>

namespace corekit::detail {
namespace {

// Numbers under which converters by number would give UTF-16 and UTF-32, which are no narrow text.
bool isWideForm(UINT number)
{
    return number == 1200 || number == 1201 || number == 12000 || number == 12001;
}

std::unique_ptr<const CodePage> makePage(UINT number)
{
    if (number == CP_UTF8) return makeUtf8Page();
    const auto names = codePageNames();
    const auto row = std::ranges::lower_bound(names, number, {}, &CodePageName::number);
    if (row != names.end() && row->number == number)
        return row->kind == ConverterKind::iconv ? makeIconvPage(row->name) : makeIcuPage(row->name);
    if (isWideForm(number) || number < 37 || number > 9999) return nullptr;
    auto page = makeIcuPage(("windows-" + std::to_string(number)).c_str());
    return page ? std::move(page) : makeIcuPage(("ibm-" + std::to_string(number)).c_str());
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

} // namespace corekit::detail
