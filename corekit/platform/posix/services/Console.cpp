#include "corekit/platform/Console.h"

#include "corekit/platform/HarmlessText.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

// The machine's order of the colours has red and blue the other way round.
std::string colourSequence(WORD colour)
{
    const int base = (colour & FOREGROUND_INTENSITY) != 0 ? 90 : 30;
    const int hue = ((colour & FOREGROUND_RED) != 0 ? 1 : 0) | (colour & FOREGROUND_GREEN) |
                    ((colour & FOREGROUND_BLUE) != 0 ? 4 : 0);
    return "\x1B[" + std::to_string(base + hue) + "m";
}

void writeOut(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

} // namespace

int TerminalColumns(StandardStream stream)
{
    const int descriptor = static_cast<int>(stream);
    winsize size{};
    if (!isatty(descriptor)) return 0;
    return ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

void WriteConsoleText(const char* text, WORD colour)
{
    if (text == nullptr) return;
    if (!isatty(STDOUT_FILENO)) return writeOut(text);
    // A line end comes last, so that a colour never fills the line below.
    std::string body = corekit::HarmlessText(text, corekit::LineEnds::kept), end;
    const char* const refusal = std::getenv("NO_COLOR"); // see no-color.org
    if (colour == 0 || (refusal && *refusal)) return writeOut(body);
    while (body.ends_with('\n')) {
        body.pop_back();
        end += '\n';
    }
    writeOut(colourSequence(colour) + body + "\x1B[0m" + end);
}

void SetConsoleTitleA(const char* title)
{
    if (!isatty(STDOUT_FILENO)) return;
    std::string shown = title;
    std::erase_if(shown, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; });
    writeOut("\x1B]0;" + shown + "\a");
}
