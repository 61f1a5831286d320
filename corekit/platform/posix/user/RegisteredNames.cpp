#include "corekit/platform/posix/user/RegisteredNames.h"

#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Messages.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <string>

namespace {

constexpr UINT firstNumber = 0xC000, lastNumber = 0xFFFF;

// Messages and clipboard formats share their numbers.
struct Names {
    std::mutex lock;
    std::map<std::string, UINT> numbers; // by the name in capitals
    std::map<UINT, std::string> spelled;

    static Names& Instance()
    {
        static auto* const names = new Names; // asked for by static objects at the end, too
        return *names;
    }
};

} // namespace

namespace corekit {
namespace detail {

UINT registerName(const char* name)
{
    if (!name || !*name) return 0;
    std::string capitals = name;
    std::ranges::transform(capitals, capitals.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    Names& names = Names::Instance();
    const std::lock_guard guard(names.lock);
    const auto next = static_cast<UINT>(firstNumber + names.numbers.size());
    if (const auto found = names.numbers.find(capitals); found != names.numbers.end()) return found->second;
    if (next > lastNumber) return 0;
    names.numbers.emplace(std::move(capitals), next);
    names.spelled.emplace(next, name);
    return next;
}

} // namespace detail

std::string registeredName(UINT number)
{
    Names& names = Names::Instance();
    const std::lock_guard guard(names.lock);
    const auto found = names.spelled.find(number);
    return found == names.spelled.end() ? std::string() : found->second;
}

} // namespace corekit

UINT RegisterWindowMessageA(const char* name) { return corekit::detail::registerName(name); }
UINT RegisterClipboardFormatA(const char* name) { return corekit::detail::registerName(name); }
