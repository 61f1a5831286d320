#include "view/FrameClock.h"

#include <chrono>

namespace prompter {
namespace {

constexpr UINT frameIsDue = WM_USER + 1;

} // namespace

FrameClock::FrameClock(std::function<void()> onFrame)
    : m_onFrame(std::move(onFrame)), m_window([this](const MSG& message) -> LRESULT {
          if (message.message == frameIsDue && m_isDue.exchange(false)) m_onFrame();
          return 0;
      }),
      m_thread([this] { Run(); })
{
}

FrameClock::~FrameClock()
{
    {
        const std::lock_guard lock(m_lock);
        m_isEnding = true;
    }
    m_ends.notify_all();
    m_thread.join();
}

// Each time is reckoned from the beginning, so that no rounding adds up.
void FrameClock::Run()
{
    using namespace std::chrono;
    const auto start = steady_clock::now();
    std::unique_lock lock(m_lock);
    for (std::int64_t frame = 1; !m_isEnding;) {
        const auto due = start + nanoseconds(frame * std::nano::den / framesPerSecond);
        if (m_ends.wait_until(lock, due, [this] { return m_isEnding; })) return;
        if (!m_isDue.exchange(true)) PostMessageA(m_window.GetSafeHwnd(), frameIsDue, 0, 0);
        frame = duration_cast<nanoseconds>(steady_clock::now() - start).count() * framesPerSecond /
                    std::nano::den +
                1;
    }
}

} // namespace prompter
