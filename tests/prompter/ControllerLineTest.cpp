#include "remote/ControllerLine.h"

#include "../devices/Line.h"

#include <chrono>

using namespace prompter;

namespace {

class Controller : public Line {
protected:
    // Answers messages until the condition holds, at most for ten seconds.
    template <class Condition>
    static bool Wait(Condition holds)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!holds() && std::chrono::steady_clock::now() < end) {
            MSG message;
            if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageA(&message);
            else
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return holds();
    }
    using Kind = ControllerEvent::Kind;
    static constexpr ControllerEvent start{Kind::button, 1};

    std::vector<ControllerEvent> events;
    const ControllerLine::Handler note = [this](const ControllerEvent& event) { events.push_back(event); };
};

TEST_F(Controller, ReportsWhatItsPairsMeanInOrder)
{
    ControllerLine line(number, note);
    ASSERT_TRUE(Wait([&] { return line.IsOpen(); }));
    const termios seen = Seen();
    EXPECT_EQ(cfgetispeed(&seen), B9600);
    Send(std::string("\x82\x01\x80\x4A\x81", 5));
    ASSERT_TRUE(Wait([&] { return events.size() == 2; }));
    Send("\x42");
    ASSERT_TRUE(Wait([&] { return events.size() == 3; }));
    const std::vector<ControllerEvent> expected = {start, {Kind::speed, 10}, {Kind::wheel, 2}};
    EXPECT_EQ(events, expected);
}

TEST_F(Controller, IsTakenAgainAfterItWasUnplugged)
{
    ControllerLine line(number, note);
    ASSERT_TRUE(Wait([&] { return line.IsOpen(); }));
    HangUp();
    ASSERT_TRUE(Wait([&] { return !line.IsOpen(); }));
    char name[128];
    int again = -1, slave = -1;
    ASSERT_EQ(openpty(&again, &slave, name, nullptr, nullptr), 0);
    std::filesystem::remove(folder / "dev/COM7");
    std::filesystem::create_symlink(name, folder / "dev/COM7");
    ASSERT_TRUE(Wait([&] { return line.IsOpen(); }));
    EXPECT_EQ(write(again, "\x82\x01", 2), 2);
    EXPECT_TRUE(Wait([&] { return events == std::vector<ControllerEvent>{start}; }));
    close(slave);
    close(again);
}

} // namespace
