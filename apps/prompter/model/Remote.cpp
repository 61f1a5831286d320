#include "model/Remote.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

namespace prompter {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::vector<std::string> Words(std::string_view line)
{
    std::vector<std::string> words(1);
    for (const char c : line) {
        if (c != ' ' && c != '\t')
            words.back() += Lower(c);
        else if (!words.back().empty())
            words.emplace_back();
    }
    if (words.back().empty()) words.pop_back();
    return words;
}

std::string Shown(std::string_view word)
{
    constexpr std::size_t longest = 32;
    std::string shown;
    for (const char c : word.substr(0, longest)) shown += c >= ' ' && c <= '~' ? c : '?';
    return word.size() > longest ? shown + "..." : shown;
}

RemoteError Wrong(const std::string& what) { return {"error: " + what}; }

struct Number {
    double value;
    Relative relative;
};

std::optional<Number> NumberOf(std::string_view word)
{
    const bool isSigned = word.starts_with('+') || word.starts_with('-');
    const bool isNegative = word.starts_with('-');
    if (isSigned) word.remove_prefix(1);
    if (word.empty() || word.front() < '0' || word.front() > '9') return std::nullopt;
    double value = 0;
    const auto [end, error] =
        std::from_chars(word.data(), word.data() + word.size(), value, std::chars_format::fixed);
    if (error != std::errc() || end != word.data() + word.size() || value > 1e6) return std::nullopt;
    return Number{isNegative ? -value : value, isSigned ? Relative::yes : Relative::no};
}

RemoteCommand WithNumber(const std::string& command, const std::string& word)
{
    const auto number = NumberOf(word);
    if (!number) return Wrong("'" + Shown(word) + "' is no number");
    const int whole = static_cast<int>(number->value);
    if (command == "speed")
        return SpeedCommand{static_cast<int>(std::lround(number->value * 10)), number->relative};
    if (whole != number->value) return Wrong("'" + Shown(word) + "' is no whole number");
    if (command == "line") return LineCommand{whole};
    if (number->relative == Relative::no && whole < 1) return Wrong("stories are counted from 1");
    return StoryCommand{whole, number->relative};
}

} // namespace

RemoteCommand ParseRemoteLine(std::string_view line)
{
    if (line.size() > longestRemoteLine) return Wrong("the line is too long");
    const std::vector<std::string> words = Words(line);
    if (words.empty()) return Wrong("the line is empty");
    const std::string& command = words[0];
    const bool takesNumber = command == "speed" || command == "story" || command == "line";
    const bool takesNothing = command == "start" || command == "stop" || command == "state";
    if (!takesNumber && !takesNothing && command != "blank")
        return Wrong("no command '" + Shown(command) +
                     "'; there are start, stop, speed, story, line, blank, state");
    if (words.size() != (takesNothing ? 1u : 2u))
        return Wrong("'" + command +
                     (takesNothing ? "' takes nothing behind it" : "' takes one word behind it"));
    if (takesNumber) return WithNumber(command, words[1]);
    if (command == "start") return StartCommand{};
    if (command == "stop") return StopCommand{};
    if (command == "state") return StateCommand{};
    if (words[1] == "on" || words[1] == "off") return BlankCommand{words[1] == "on"};
    return Wrong("'blank' is 'on' or 'off'");
}

} // namespace prompter
