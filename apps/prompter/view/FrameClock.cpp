#include "view/FrameClock.h"

#include <algorithm>

namespace prompter {
namespace {

using namespace std::chrono;

std::int64_t Microseconds(steady_clock::time_point time)
{
    return duration_cast<microseconds>(time.time_since_epoch()).count();
}

} // namespace

FrameClock::FrameClock(OnFrame onFrame) : m_onFrame(std::move(onFrame)), m_timer([this] { Ring(); })
{
    m_timer.SetDue(TimeOf(m_frame));
}

FrameClock::Time FrameClock::TimeOf(std::int64_t frame) const
{
    return m_start + nanoseconds(frame * std::nano::den / framesPerSecond);
}

// The last frame that is due by now, which is a later one than was waited for where something took its time.
void FrameClock::Ring()
{
    const std::int64_t passed = nanoseconds(steady_clock::now() - m_start).count();
    const std::int64_t frame = std::max(m_frame, passed * framesPerSecond / std::nano::den);
    m_frame = frame + 1;
    m_timer.SetDue(TimeOf(m_frame));
    m_onFrame(Microseconds(TimeOf(frame)), Microseconds(TimeOf(frame + 1)));
}

} // namespace prompter
