#include "corekit/hosts/NTSec.h"
#include "corekit/foundation/SystemInfo.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// What a process says that has become another user with these groups: bit 0 for the token, bit 1 for the
// question of the foundation.
int AsUser(uid_t user, gid_t group, std::vector<gid_t> groups)
{
    const pid_t child = fork();
    if (child == 0) {
        if (setgroups(groups.size(), groups.data()) || setresgid(group, group, group) ||
            setresuid(user, user, user))
            _exit(99);
        _exit(ntsec_IsCurrentUserAdministrator() | SysInfo().HaveLocalAdminAccess() << 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Security, AdministratorsAreTheSuperuserAndEffectiveMembersOfItsGroup)
{
    const group* const sudo = getgrnam("sudo");
    ASSERT_TRUE(sudo);
    const gid_t administrators = sudo->gr_gid;
    EXPECT_EQ(ntsec_IsCurrentUserAdministrator(), SysInfo().HaveLocalAdminAccess());
    if (geteuid() != 0) return; // others cannot become someone else
    constexpr uid_t nobody = 65534;
    EXPECT_EQ(AsUser(0, 0, {}), 3);
    EXPECT_EQ(AsUser(nobody, nobody, {}), 0);
    EXPECT_EQ(AsUser(nobody, nobody, {100, administrators}), 3);
    EXPECT_EQ(AsUser(nobody, administrators, {}), 3);
}

TEST(Security, AGroupCountsOnlyAsItselfAndOnlyInAToken)
{
    HANDLE token = nullptr;
    ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
    CNTSecuritySID group;
    EXPECT_FALSE(group.TokenContainsThisSID(token)); // nothing to look for
    group.InitialiseBuiltinSID(32, 545);
    EXPECT_FALSE(group.TokenContainsThisSID(token));
    group.InitAdministratorsGroupSID();
    EXPECT_EQ(group.TokenContainsThisSID(token), ntsec_IsCurrentUserAdministrator());
    EXPECT_FALSE(group.TokenContainsThisSID(nullptr));
    CloseHandle(token);
    EXPECT_FALSE(ntsec_IsTokenAdministrator(token));
    group.FreeSID();
    EXPECT_FALSE(group.TokenContainsThisSID(token));
}

} // namespace
