#include "corekit/foundation/Timecode.h"
#include "corekit/stores/RegistryKey.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {
// This program run again as a child, which does one thing and ends before any test: it stores the number that
// the variable gives, or with "rate" answers with the frame rate that module start left.
const int child = [] {
    const char* task = std::getenv("MODULE_START_CHILD");
    if (!task) return 0;
    if (std::string(task) == "rate") _exit(CTimecode::GetFramesPerSec());
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, "Software\\Corvane");
    key.SetValue("NTSC Mode", std::atoi(task));
    key.Close();
    _exit(0);
}();

int RunChild(const std::string& home, const std::string& task)
{
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    const int status =
        std::system(("COREKIT_HOME='" + home + "' MODULE_START_CHILD=" + task + " '" + self + "'").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
} // namespace

TEST(ModuleStart, MachineSettingDecidesTheTimecodeStandard)
{
    const TempFolder folder;
    const std::string& home = folder.Path();
    EXPECT_EQ(RunChild(home, "rate"), 25);
    EXPECT_TRUE(std::filesystem::is_empty(home)) << "asking must not make a store";
    for (const auto& [setting, rate] : {std::pair{"1", 30}, {"0", 25}, {"-5", 30}}) {
        ASSERT_EQ(RunChild(home, setting), 0);
        EXPECT_EQ(RunChild(home, "rate"), rate) << setting;
    }
}
