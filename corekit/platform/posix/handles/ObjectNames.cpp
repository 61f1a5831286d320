#include "corekit/platform/posix/handles/ObjectNames.h"

#include "corekit/platform/Handles.h"
#include "corekit/platform/posix/Errno.h"

#include <algorithm>
#include <map>
#include <string>

namespace corekit::detail {
namespace {

// Guarded by the dispatcher lock. An object whose last handle is gone may still be listed.
std::map<std::string, Waitable*, std::less<>>& names()
{
    static auto& all = *new std::map<std::string, Waitable*, std::less<>>; // for the life of the process
    return all;
}

void forgetName(const Waitable& object)
{
    const std::lock_guard lock(dispatcherLock);
    std::erase_if(names(), [&](const auto& row) { return row.second == &object; });
}

// The object that has the name, with a handle counted for the caller; else the new one has it from now on.
Waitable& holderOf(const char* name, Waitable& made)
{
    const std::lock_guard lock(dispatcherLock);
    Waitable*& holder = names().try_emplace(name, &made).first->second;
    if (holder != &made && holder->addHandleIfAny()) return *holder;
    holder = &made;
    made.setNamed(forgetName);
    return made;
}

} // namespace

HANDLE publishName(HANDLE made, const char* name)
{
    if (made == nullptr || name == nullptr || *name == 0) return made;
    Waitable& own = static_cast<Waitable&>(*slotOf(made)->object);
    Waitable& holder = holderOf(name, own);
    if (&holder == &own) return fail(NO_ERROR, made);
    const HANDLE other = openCounted(holder);
    const bool isSameKind = holder.kind() == own.kind();
    CloseHandle(made);
    if (other == nullptr) return nullptr;
    if (isSameKind) return fail(ERROR_ALREADY_EXISTS, other);
    CloseHandle(other);
    return fail<HANDLE>(ERROR_INVALID_HANDLE, nullptr);
}

} // namespace corekit::detail
