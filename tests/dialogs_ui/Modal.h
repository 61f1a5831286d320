// What tests of modal dialogs share: an application with the toolkit, and acts of a user within a modal loop.
#pragma once

#include "corekit/framework/WinApp.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/Timers.h"
#include "corekit/platform/Toolkit.h"

#include <QApplication>
#include <QWidget>

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

// Runs one act after the other, each in a turn of the loop of its own. The last one, which ends the dialog,
// is repeated until it has.
class Acts {
public:
    using Act = std::function<void()>;

    Acts(std::initializer_list<Act> acts)
        : m_acts(acts), m_window([this](const MSG&) -> LRESULT { return Next(); }),
          m_timer(::SetTimer(nullptr, 0, turnMilliseconds, Tick))
    {
        current = this;
    }
    ~Acts()
    {
        ::KillTimer(nullptr, m_timer);
        current = nullptr;
    }
    Acts(const Acts&) = delete;
    Acts& operator=(const Acts&) = delete;
    bool AllDone() const { return m_lastRan; }

private:
    static constexpr UINT turnMilliseconds = 15;
    // Boxes of the toolkit are no windows of ours.
    using Front = std::pair<HWND, const QWidget*>;
    static Front InFront() { return {::GetActiveWindow(), QApplication::activeModalWidget()}; }

    static void Tick(HWND, UINT, UINT_PTR, DWORD)
    {
        if (!current || ++current->m_turns < 3) return;
        current->m_turns = 0;
        PostMessageA(current->m_window.GetSafeHwnd(), WM_USER, 0, 0); // a timer does not tick within itself
    }
    // An act that deals with what waits does not run the next one, only one that has opened another dialog.
    LRESULT Next()
    {
        if (m_depth > 0 && InFront() == m_inFrontBefore) return 0;
        const Act act = m_acts.front();
        if (m_acts.size() > 1)
            m_acts.pop_front();
        else
            m_lastRan = true;
        const Front outer = std::exchange(m_inFrontBefore, InFront());
        ++m_depth;
        act();
        --m_depth;
        m_inFrontBefore = outer;
        return 0;
    }

    static inline Acts* current = nullptr;
    std::deque<Act> m_acts;
    MessageWindow m_window;
    int m_turns = 0, m_depth = 0;
    Front m_inFrontBefore;
    bool m_lastRan = false;
    UINT_PTR m_timer;
};

// Return in a field of the toolkit that may have a list of completions open, which would take the key for
// itself.
inline void PressReturnInField()
{
    if (QWidget* const completions = QApplication::activePopupWidget()) completions->hide();
    corekit::test::PressKey(VK_RETURN);
}

inline Acts::Act Press(int key, std::initializer_list<int> held = {})
{
    return [key, held = std::vector<int>(held)] {
        if (held.empty())
            corekit::test::PressKey(key);
        else
            corekit::test::PressKey(key, {held.front()});
    };
}
