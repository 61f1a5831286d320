#include "corekit/platform/DebugOutput.h"

#include "corekit/platform/Errors.h"

#include <cstdio>
#include <memory>
#include <mutex>
#include <utility>

namespace {

struct Current {
    std::mutex lock;
    std::shared_ptr<const DebugListener> listener = std::make_shared<const DebugListener>();
};

// Lives to the end of the process: destructors of static objects write, too.
Current& current()
{
    static auto* const made = new Current;
    return *made;
}

} // namespace

DebugListener SetDebugListener(DebugListener listener)
{
    auto next = std::make_shared<const DebugListener>(std::move(listener));
    const std::lock_guard lock(current().lock);
    return *std::exchange(current().listener, std::move(next));
}

void OutputDebugStringA(const char* text)
{
    if (!text) text = "";
    const DWORD error = GetLastError();
    std::shared_ptr<const DebugListener> listener;
    {
        const std::lock_guard lock(current().lock);
        listener = current().listener;
    }
    if (*listener)
        (*listener)(text);
    else
        std::fputs(text, stderr);
    SetLastError(error);
}
