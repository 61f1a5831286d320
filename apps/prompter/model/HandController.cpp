#include "model/HandController.h"

#include <iterator>
#include <utility>

namespace prompter {
namespace {

using enum PromptAction;

constexpr std::uint8_t firstBit = 0x80, speed = 0x80, wheel = 0x81, button = 0x82;
constexpr int middle = 64;

constexpr ControllerEvent buttons[] = {
    {startOrStop},  {stepStories, -1}, {stepStories, 1}, {goToStart},     {blank},
    {toggleMarker}, {stepMarkers, -1}, {stepMarkers, 1}, {stepLines, -1}, {stepLines, 1}};

} // namespace

std::optional<ControllerEvent> ControllerParser::Take(std::uint8_t byte)
{
    if (byte & firstBit) {
        m_first = byte;
        return std::nullopt;
    }
    switch (std::exchange(m_first, std::uint8_t{0})) {
    case speed:
        return ControllerEvent{setSpeed, byte - middle};
    case wheel:
        return ControllerEvent{stepLines, byte - middle};
    case button:
        if (byte < 1 || byte > std::size(buttons)) return std::nullopt;
        return buttons[byte - 1];
    default:
        return std::nullopt;
    }
}

} // namespace prompter
