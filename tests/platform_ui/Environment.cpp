#include "Canvas.h"

namespace {

// Before the application object exists, fonts must refuse and everything else must work; afterwards the
// toolkit runs for all other tests.
class ToolkitEnvironment : public testing::Environment {
public:
    void SetUp() override
    {
        ASSERT_FALSE(ToolkitIsRunning());
        const HDC dc = CreateCompatibleDC(nullptr);
        ASSERT_NE(dc, nullptr);
        SetLastError(0);
        EXPECT_EQ(makeFont(latin, 20), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_DEV_NOT_EXIST);
        SIZE size;
        TEXTMETRICA metrics;
        EXPECT_FALSE(GetTextExtentPoint32W(dc, u"A", 1, &size));
        EXPECT_FALSE(GetTextMetricsA(dc, &metrics));
        EXPECT_FALSE(ExtTextOutW(dc, 0, 0, 0, nullptr, u"A", 1));
        EXPECT_EQ(EnumFontsA(
                      dc, nullptr, [](const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM) { return 1; }, 0),
                  0);

        ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
        EXPECT_TRUE(StartToolkit());
        EXPECT_TRUE(ToolkitIsRunning());
        EXPECT_TRUE(GetTextMetricsA(dc, &metrics)) << "a context made early must work once the toolkit runs";
        DeleteDC(dc);
    }
};

const auto* const registered = testing::AddGlobalTestEnvironment(new ToolkitEnvironment);

} // namespace
