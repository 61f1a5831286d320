// The lines of remote control: one command a line, one line as the answer.
//
//     start | stop | speed 1.5 | speed +0.5 | story 3 | line +1 | blank on | blank off | state
//
// Letter case and the amount of blanks do not matter. An answer begins with "ok" or with "error".
#pragma once

#include <string>
#include <string_view>
#include <variant>

namespace prompter {

enum class Relative { no, yes };

struct StartCommand {};
struct StopCommand {};
struct StateCommand {};
struct SpeedCommand { // tenths of the read rate
    int tenths;
    Relative relative;
};
struct StoryCommand { // counted from 1
    int number;
    Relative relative;
};
struct LineCommand {
    int lines; // always relative
};
struct BlankCommand {
    bool on;
};
struct RemoteError {
    std::string answer; // the whole line, without its end
};

using RemoteCommand = std::variant<StartCommand, StopCommand, StateCommand, SpeedCommand, StoryCommand,
                                   LineCommand, BlankCommand, RemoteError>;

// `line` has no line end. What it holds is never repeated in an answer but as printable ASCII, cut short.
RemoteCommand ParseRemoteLine(std::string_view line);

inline constexpr std::size_t longestRemoteLine = 256; // bytes; a longer one is an error

} // namespace prompter
