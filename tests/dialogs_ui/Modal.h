// What tests of modal dialogs share: an application with the toolkit, and acts of a user within a modal loop.
#pragma once

#include "corekit/framework/WinApp.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/Toolkit.h"

#include <deque>
#include <functional>
#include <gtest/gtest.h>

// Runs each act when the loop of the next modal dialog, or of the one that the act before opened, is idle.
class Acts {
public:
    using Act = std::function<void()>;

    Acts(std::initializer_list<Act> acts)
        : m_acts(acts), m_window([this](const MSG&) -> LRESULT { return Next(); })
    {
        Post();
    }
    bool AllDone() const { return m_acts.empty(); }

private:
    LRESULT Next()
    {
        if (m_acts.empty()) return 0;
        const Act act = std::move(m_acts.front());
        m_acts.pop_front();
        Post(); // before the act: it may open a dialog of its own
        act();
        return 0;
    }
    void Post()
    {
        if (!m_acts.empty()) PostMessageA(m_window.GetSafeHwnd(), WM_USER, 0, 0);
    }

    std::deque<Act> m_acts;
    MessageWindow m_window;
};

inline Acts::Act Press(int key, std::initializer_list<int> held = {})
{
    return [key, held = std::vector<int>(held)] {
        if (held.empty())
            corekit::test::PressKey(key);
        else
            corekit::test::PressKey(key, {held.front()});
    };
}
