#include "model/HandController.h"

#include <algorithm>

namespace prompter {
namespace {

constexpr int middle = 2048, largest = 4095;
constexpr std::uint8_t firstMark = 0x80;

int MiddleOf(ControllerKind kind) { return kind == ControllerKind::button ? 0 : middle; }

} // namespace

std::vector<ControllerEvent> ControllerReader::Take(std::span<const std::uint8_t> bytes)
{
    std::vector<ControllerEvent> events;
    for (const std::uint8_t byte : bytes) {
        if (byte & firstMark) {
            m_first = byte;
        } else if (m_first) {
            const auto kind = static_cast<ControllerKind>(*m_first >> 5 & 3);
            events.push_back({kind, ((*m_first & 0x1F) << 7 | byte) - MiddleOf(kind)});
            m_first.reset();
        }
    }
    return events;
}

std::vector<std::uint8_t> ControllerBytes(const ControllerEvent& event)
{
    const int value = std::clamp(event.value + MiddleOf(event.kind), 0, largest);
    const int first = firstMark | static_cast<int>(event.kind) << 5 | value >> 7;
    return {static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(value & 0x7F)};
}

} // namespace prompter
