// Windows and fonts need the toolkit: it runs, offscreen, before any test of the binary. Registry and
// language are not the machine's own.
#include "corekit/platform/Toolkit.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

class Offscreen : public testing::Environment {
    void SetUp() override
    {
        m_home.emplace();
        setenv("COREKIT_HOME", m_home->Path().c_str(), 1);
        setenv("LC_ALL", "C", 1);
        ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
    }
    void TearDown() override { m_home.reset(); }

    std::optional<TempFolder> m_home;
};

[[maybe_unused]] const auto* const offscreen = testing::AddGlobalTestEnvironment(new Offscreen);

} // namespace
