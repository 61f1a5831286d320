#include "corekit/platform/posix/services/Administrators.h"

#include <algorithm>
#include <cerrno>
#include <grp.h>
#include <optional>
#include <pwd.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace corekit::detail {
namespace {

// What distributions call the group whose members may become the superuser.
constexpr const char* groupNames[] = {"sudo", "wheel", "admin"};

struct Group {
    gid_t id;
    std::vector<std::string> members;
};

std::optional<Group> groupOf(const char* name)
{
    std::vector<char> buffer(4096);
    group entry;
    group* found = nullptr;
    while (::getgrnam_r(name, &entry, buffer.data(), buffer.size(), &found) == ERANGE &&
           buffer.size() < std::size_t{1} << 24)
        buffer.resize(buffer.size() * 2);
    if (!found) return {};
    Group group{found->gr_gid, {}};
    for (char** member = found->gr_mem; *member; ++member) group.members.emplace_back(*member);
    return group;
}

bool hasRightsOf(gid_t id)
{
    if (::getegid() == id) return true;
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(::getgroups(0, nullptr), 0)));
    const int count = ::getgroups(static_cast<int>(groups.size()), groups.data());
    groups.resize(static_cast<std::size_t>(std::max(count, 0)));
    return std::ranges::find(groups, id) != groups.end();
}

std::string userName()
{
    std::vector<char> buffer(16384);
    passwd entry;
    passwd* found = nullptr;
    ::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found);
    return found ? found->pw_name : "";
}

} // namespace

Administrator administratorState()
{
    if (::geteuid() == 0) return Administrator::effective;
    Administrator state = Administrator::no;
    for (const char* name : groupNames) {
        const auto group = groupOf(name);
        if (!group) continue;
        if (hasRightsOf(group->id)) return Administrator::effective;
        if (std::ranges::find(group->members, userName()) != group->members.end())
            state = Administrator::listed;
    }
    return state;
}

} // namespace corekit::detail
