#include "corekit/resources/icons/TurningDots.h"

#include <array>
#include <cstddef>

namespace corekit::detail {

namespace {

constexpr std::string_view head = "/* XPM */\n\"32 32 13 1\",\n\"  c None\",\n";
constexpr std::string_view body = turningDots.substr(1);
constexpr std::string_view colourLine = "\"a c #000000\",\n";
constexpr std::size_t length = head.size() + turningSteps * colourLine.size() + body.size();
using Picture = std::array<char, length>;

// From the newest dot to the oldest: both can be told from a light ground as from a dark one.
constexpr int newest[] = {0x22, 0x77, 0xDD}, oldest[] = {0x99, 0x99, 0x99};

constexpr Picture pictureOf(int step)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    Picture picture{};
    std::size_t at = 0;
    const auto add = [&](std::string_view text) {
        for (const char c : text) picture[at++] = c;
    };
    add(head);
    for (int dot = 0; dot < turningSteps; ++dot) {
        const int age = (step - dot + turningSteps) % turningSteps;
        const char letter = static_cast<char>('a' + dot);
        add("\"");
        add({&letter, 1});
        add(" c #");
        for (int channel = 0; channel < 3; ++channel) {
            const int value =
                newest[channel] + (oldest[channel] - newest[channel]) * age / (turningSteps - 1);
            const char pair[] = {digits[static_cast<std::size_t>(value / 16)],
                                 digits[static_cast<std::size_t>(value % 16)]};
            add({pair, 2});
        }
        add("\",\n");
    }
    add(body);
    return picture;
}

constexpr std::array<Picture, turningSteps> pictures = [] {
    std::array<Picture, turningSteps> all{};
    for (int step = 0; step < turningSteps; ++step) all[static_cast<std::size_t>(step)] = pictureOf(step);
    return all;
}();

} // namespace

std::string_view turningIcon(int step)
{
    const Picture& picture = pictures[static_cast<std::size_t>(step)];
    return {picture.data(), picture.size()};
}

} // namespace corekit::detail
