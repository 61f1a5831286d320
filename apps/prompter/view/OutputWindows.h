// The windows on displays that show the prompt, one for each display. User-interface thread.
#pragma once

#include "model/OutputPlan.h"
#include "view/PromptWnd.h"

#include <memory>

namespace prompter {

class OutputWindows {
public:
    // Escape in one of the windows calls `onLeave`.
    OutputWindows(Session& session, std::function<void()> onLeave)
        : m_session(session), m_onLeave(std::move(onLeave))
    {
    }

    // Makes the windows what the plan says: new displays get one, others lose theirs, the rest keep it.
    void Show(std::span<const PlannedOutput> plan);
    // Takes the windows away but keeps their objects, one of which may have called; Forget ends those.
    void Close();
    void Forget() { m_windows.clear(); }

    bool IsShown() const { return !m_windows.empty(); }
    bool Has(HWND window) const;
    void ShowFrame();
    void AwaitShown() const; // until the display server has taken the frame
    void TakeFocus();
    struct Window {
        std::string display;
        RECT place;
        std::unique_ptr<PromptWnd> window;
    };
    const std::vector<Window>& Windows() const { return m_windows; }

private:
    Session& m_session;
    std::function<void()> m_onLeave;
    std::vector<Window> m_windows;
};

} // namespace prompter
