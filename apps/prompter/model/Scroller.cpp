#include "model/Scroller.h"

#include <algorithm>
#include <cmath>

namespace prompter {

double Scroller::Position(std::int64_t now) const
{
    return std::clamp(m_start + PerMicrosecond() * static_cast<double>(now - m_since), 0.0, m_length);
}

void Scroller::Settle(std::int64_t now)
{
    m_start = Position(now);
    m_since = now;
}

void Scroller::SetPixelsPerSecond(double pixels, std::int64_t now)
{
    Settle(now);
    m_pixelsPerSecond = std::max(pixels, 0.0);
}

void Scroller::SetRange(double length, std::int64_t now)
{
    Settle(now);
    m_length = std::max(length, 0.0);
    m_start = std::min(m_start, m_length);
}

void Scroller::MoveTo(double position, std::int64_t now)
{
    m_start = std::clamp(position, 0.0, m_length);
    m_since = now;
}

void Scroller::Start(std::int64_t now)
{
    Settle(now);
    m_running = true;
}

void Scroller::Stop(std::int64_t now)
{
    Settle(now);
    m_running = false;
}

void Scroller::SetSpeed(int speed, std::int64_t now)
{
    Settle(now);
    m_speed = std::clamp(speed, -speedSteps, speedSteps);
}

std::int64_t Scroller::TimeLeft(std::int64_t now) const
{
    const double speed = PerMicrosecond();
    if (speed == 0) return -1;
    const double way = speed > 0 ? m_length - Position(now) : -Position(now);
    return std::llround(way / speed);
}

} // namespace prompter
