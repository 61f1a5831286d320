// The protocol of a hand controller on a serial line: two bytes an event, at 9600 baud, 8 bits, no parity.
//
//   first byte    1 k k v v v v v    the top bit set, two bits of kind, the upper five bits of a value
//   second byte   0 v v v v v v v    its lower seven bits
//
//   kind 0        speed: the value less 2048, in hundredths of the read rate
//   kind 1        steps by lines: the value less 2048
//   kind 2        steps by stories: the value less 2048
//   kind 3        a button goes down: 0 start or stop, 1 blank, 2 first line, 3 last line; others mean
//   nothing
//
// A byte that stands where it cannot is dropped, so a reader that joins in the middle is in step after two.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace prompter {

enum class ControllerKind : std::uint8_t { speed, lines, stories, button };

struct ControllerEvent {
    ControllerKind kind;
    int value; // hundredths, steps, or the number of the button

    friend bool operator==(const ControllerEvent&, const ControllerEvent&) = default;
};

class ControllerReader {
public:
    // Takes what came in; events are those that are complete by now, in their order.
    std::vector<ControllerEvent> Take(std::span<const std::uint8_t> bytes);

private:
    std::optional<std::uint8_t> m_first;
};

// The two bytes of an event, for tests of a controller and for programs that play one.
std::vector<std::uint8_t> ControllerBytes(const ControllerEvent& event);

} // namespace prompter
