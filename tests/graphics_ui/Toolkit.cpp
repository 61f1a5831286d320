#include "corekit/platform/Toolkit.h"

#include <gtest/gtest.h>

namespace {

class Offscreen : public testing::Environment {
    void SetUp() override { ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen)); }
};

[[maybe_unused]] const auto* const offscreen = testing::AddGlobalTestEnvironment(new Offscreen);

} // namespace
