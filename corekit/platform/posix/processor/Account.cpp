#include "corekit/platform/posix/processor/Account.h"

#include <cerrno>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace corekit::detail {

Account currentAccount()
{
    constexpr std::size_t most = 1 << 20;
    passwd user{};
    passwd* found = nullptr;
    for (std::vector<char> store(4096); store.size() <= most; store.resize(4 * store.size())) {
        const int error = ::getpwuid_r(::geteuid(), &user, store.data(), store.size(), &found);
        if (error == ERANGE || error == EINTR) continue;
        if (error != 0 || !found) break;
        return {user.pw_name ? user.pw_name : "", user.pw_dir ? user.pw_dir : ""};
    }
    return {};
}

} // namespace corekit::detail
