#include "view/OutputWindows.h"

#include "corekit/platform/EvenFrames.h"

#include <algorithm>

namespace prompter {
namespace {

bool IsSame(const RECT& a, const RECT& b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

} // namespace

void OutputWindows::Show(std::span<const PlannedOutput> plan)
{
    std::erase_if(m_windows, [&](const Window& w) {
        return std::ranges::find(plan, w.display, &PlannedOutput::display) == plan.end();
    });
    for (const PlannedOutput& planned : plan) {
        const auto found = std::ranges::find(m_windows, planned.display, &Window::display);
        if (found == m_windows.end()) {
            auto window = std::make_unique<PromptWnd>(m_session, planned.form);
            window->onLeave = m_onLeave;
            if (window->CreateOutput(nullptr, planned.place))
                m_windows.push_back({planned.display, planned.place, std::move(window)});
            continue;
        }
        if (!IsSame(found->place, planned.place)) {
            found->place = planned.place;
            found->window->MoveWindow(CRect(planned.place));
        }
        if (found->window->Form() != planned.form) found->window->SetForm(planned.form);
    }
}

void OutputWindows::Close()
{
    for (const Window& w : m_windows) w.window->DestroyWindow();
}

bool OutputWindows::Has(HWND window) const
{
    return std::ranges::any_of(m_windows, [&](const Window& w) { return w.window->m_hWnd == window; });
}

void OutputWindows::ShowFrame()
{
    for (const Window& w : m_windows) {
        w.window->ShowFrame();
        w.window->UpdateWindow();
    }
}

void OutputWindows::AwaitShown() const
{
    for (const Window& w : m_windows) corekit::AwaitShown(w.window->m_hWnd);
}

void OutputWindows::TakeFocus()
{
    if (!m_windows.empty()) m_windows.front().window->SetFocus();
}

} // namespace prompter
