#include "model/HandController.h"

#include <utility>

namespace prompter {
namespace {

constexpr std::uint8_t firstBit = 0x80, speed = 0x80, wheel = 0x81, button = 0x82;
constexpr int middle = 64;

} // namespace

std::optional<ControllerEvent> ControllerParser::Take(std::uint8_t byte)
{
    if (byte & firstBit) {
        m_first = byte;
        return std::nullopt;
    }
    using Kind = ControllerEvent::Kind;
    switch (std::exchange(m_first, std::uint8_t{0})) {
    case speed:
        return ControllerEvent{Kind::speed, byte - middle};
    case wheel:
        return ControllerEvent{Kind::wheel, byte - middle};
    case button:
        if (byte == 0) return std::nullopt;
        return ControllerEvent{Kind::button, byte};
    default:
        return std::nullopt;
    }
}

} // namespace prompter
