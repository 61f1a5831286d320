// Where the prompt view stands and how it moves: evenly, at a speed that may be negative.
//
// Positions are pixels of the laid-out script, from its top to the line at the reading mark. Times are
// microseconds of a steady clock. The position is reckoned from the moment the motion last changed, so that
// no rounding adds up and a late frame is where it should be.
#pragma once

#include <cstdint>

namespace prompter {

class Scroller {
public:
    static constexpr int speedSteps = 60; // on either side of 0
    static constexpr int stepsOfOne = 10; // the speed 1, at which the read rate holds

    // Pixels a second at speed 1.
    void SetPixelsPerSecond(double pixels, std::int64_t now);
    // How far the script goes; the position is kept within.
    void SetRange(double length, std::int64_t now);

    double Position(std::int64_t now) const;
    void MoveTo(double position, std::int64_t now);

    bool IsRunning() const { return m_running; }
    void Start(std::int64_t now);
    void Stop(std::int64_t now);
    // In tenths of the read rate; cut to +-speedSteps.
    int Speed() const { return m_speed; }
    void SetSpeed(int speed, std::int64_t now);

    // Microseconds until the end, or the beginning in reverse, is reached; -1 while nothing moves.
    std::int64_t TimeLeft(std::int64_t now) const;

private:
    double PerMicrosecond() const { return m_running ? m_pixelsPerSecond * m_speed / stepsOfOne * 1e-6 : 0; }
    void Settle(std::int64_t now);

    double m_start = 0; // the position at m_since
    std::int64_t m_since = 0;
    double m_length = 0;
    double m_pixelsPerSecond = 50;
    int m_speed = stepsOfOne;
    bool m_running = false;
};

} // namespace prompter
