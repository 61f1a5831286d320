#include "view/PromptKeys.h"

#include "corekit/platform/Keyboard.h"

#include <algorithm>

namespace prompter {
namespace {

using enum PromptAction;
constexpr int prior = 0x21, next = 0x22, end = 0x23, home = 0x24, up = 0x26, down = 0x28, escape = 0x1B;

constexpr PromptKey keys[] = {
    {VK_SPACE, Held::nothing, startOrStop, 0, "Space: start and pause"},
    {up, Held::nothing, faster, 1, "Up, Down, wheel: faster and slower, through zero into reverse"},
    {down, Held::nothing, slower, 1, ""},
    {'1', Held::nothing, setSpeed, 2, "1 to 9: speeds, 5 is the read rate; with Shift in reverse"},
    {'2', Held::nothing, setSpeed, 4, ""},
    {'3', Held::nothing, setSpeed, 6, ""},
    {'4', Held::nothing, setSpeed, 8, ""},
    {'5', Held::nothing, setSpeed, 10, ""},
    {'6', Held::nothing, setSpeed, 12, ""},
    {'7', Held::nothing, setSpeed, 14, ""},
    {'8', Held::nothing, setSpeed, 16, ""},
    {'9', Held::nothing, setSpeed, 18, ""},
    {'1', Held::shift, setSpeed, -2, ""},
    {'2', Held::shift, setSpeed, -4, ""},
    {'3', Held::shift, setSpeed, -6, ""},
    {'4', Held::shift, setSpeed, -8, ""},
    {'5', Held::shift, setSpeed, -10, ""},
    {'6', Held::shift, setSpeed, -12, ""},
    {'7', Held::shift, setSpeed, -14, ""},
    {'8', Held::shift, setSpeed, -16, ""},
    {'9', Held::shift, setSpeed, -18, ""},
    {VK_LEFT, Held::nothing, stepLines, -1, "Left, Right: a line back and on"},
    {VK_RIGHT, Held::nothing, stepLines, 1, ""},
    {prior, Held::nothing, stepStories, -1, "Page Up, Page Down: a story back and on"},
    {next, Held::nothing, stepStories, 1, ""},
    {home, Held::nothing, goToStart, 0, "Home, End: beginning and end of the script"},
    {end, Held::nothing, goToEnd, 0, ""},
    {'M', Held::nothing, toggleMarker, 0, "M: sets a marker at the line, or takes it away"},
    {'N', Held::nothing, stepMarkers, 1, "N: to the next marker; with Shift to the last"},
    {'N', Held::shift, stepMarkers, -1, ""},
    {'B', Held::nothing, blank, 0, "B: blanks the display, and shows it again"},
    {'G', Held::nothing, askForStory, 0, "G, digits, Return: to the story of that number"},
    {escape, Held::nothing, leave, 0, "Escape: back to the desk"},
};

} // namespace

std::span<const PromptKey> PromptKeys() { return keys; }

const PromptKey* FindPromptKey(int key, Held held)
{
    const auto found =
        std::ranges::find_if(keys, [&](const PromptKey& k) { return k.key == key && k.held == held; });
    return found == std::end(keys) ? nullptr : &*found;
}

} // namespace prompter
