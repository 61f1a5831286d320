#include "corekit/platform/Toolkit.h"

#include <gtest/gtest.h>

namespace {

class ToolkitEnvironment : public testing::Environment {
public:
    void SetUp() override { ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen)); }
};

const auto* const registered = testing::AddGlobalTestEnvironment(new ToolkitEnvironment);

} // namespace
