// A desk with settings and folders of its own.
#pragma once

#include "desk/Desk.h"

#include "tests/support/TempFolder.h"

#include "corekit/platform/Toolkit.h"

#include <gtest/gtest.h>

namespace prompter {

inline const Display one{"DP-1", "One", {0, 0, 800, 600}}, two{"HDMI-1", "Two", {800, 0, 1600, 600}},
    three{"HDMI-2", "Three", {1600, 0, 2400, 600}};

// A desk on the first of displays that come and go.
class OnTheDesk : public testing::Test {
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen)); }

    DeskOptions Options()
    {
        DeskOptions options;
        options.settingsPath = folder / "settings";
        options.recoveryFolder = folder / "state";
        options.listDisplays = [this] { return there; };
        return options;
    }
    void Keep(std::vector<OutputSettings> outputs)
    {
        Settings settings;
        settings.desk = {10, 10, 600, 500};
        settings.outputs = std::move(outputs);
        ASSERT_TRUE(SaveSettings(folder / "settings", settings));
    }
    // The names of the displays that show the prompt, after the desk has looked.
    static std::string Shown(Desk& desk)
    {
        desk.SendMessage(WM_TIMER, 4);
        std::string names;
        for (const auto& output : desk.Outputs())
            if (IsWindowVisible(output.window->m_hWnd)) names += output.display + " ";
        return names;
    }

    const TempFolder folder;
    std::vector<Display> there = {one, two, three};
};

} // namespace prompter
