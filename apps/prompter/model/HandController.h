// The bytes of a hand controller: pairs of which the first alone has its top bit set.
//
//     80 vv   speed: vv - 64 tenths of the read rate, so that 64 stands still and 0 is as fast as it goes
//     back 81 vv   wheel: vv - 64 lines on 82 nn   button nn was pressed, counted from 1
//
// A byte that does not fit is passed over, so that a parser that joins late is in step with the next pair.
#pragma once

#include <cstdint>
#include <optional>

namespace prompter {

struct ControllerEvent {
    enum class Kind { speed, wheel, button } kind;
    int value; // tenths of the read rate, lines, number of the button

    friend bool operator==(const ControllerEvent&, const ControllerEvent&) = default;
};

class ControllerParser {
public:
    // What the pair means that this byte ends; nothing for the first of a pair and for what means nothing.
    std::optional<ControllerEvent> Take(std::uint8_t byte);

private:
    std::uint8_t m_first = 0; // of a pair that is not whole, else 0
};

} // namespace prompter
