// The commands of the prompt view: what each is called, its key, and its button on a hand controller. Both
// can be changed by the user; the view asks the command list for what holds now.
#pragma once

#include "model/PromptAction.h"

#include "corekit/platform/Accelerators.h"
#include "corekit/platform/Keyboard.h"

#include <vector>

namespace prompter {

// The numbers are kept with the keys of users: none is given to another command.
struct PromptCommand {
    UINT id;
    PromptAction action;
    int value;
    int key;    // virtual key
    BYTE held;  // FSHIFT or 0
    int button; // of a hand controller, from 1; 0 for none
    const char* name;
    const char* description;
};

inline constexpr UINT leaveView = 340;

namespace detail {
using enum PromptAction;
// clang-format off
inline constexpr PromptCommand promptCommands[] = {
    {300, startOrStop,  0,   VK_SPACE, 0,  1, "Start and pause", "Lets the text run, and holds it."},
    {301, faster,       1,   VK_UP,    0,  0, "Faster", "A tenth of the read rate faster."},
    {302, slower,       1,   VK_DOWN,  0,  0, "Slower", "A tenth of the read rate slower, through zero into reverse."},
    {303, setSpeed,     2,   '1',      0,  0, "Speed 1", "A fifth of the read rate."},
    {304, setSpeed,     4,   '2',      0,  0, "Speed 2", "Two fifths of the read rate."},
    {305, setSpeed,     6,   '3',      0,  0, "Speed 3", "Three fifths of the read rate."},
    {306, setSpeed,     8,   '4',      0,  0, "Speed 4", "Four fifths of the read rate."},
    {307, setSpeed,    10,   '5',      0, 12, "Speed 5", "The read rate."},
    {308, setSpeed,    12,   '6',      0,  0, "Speed 6", "1.2 times the read rate."},
    {309, setSpeed,    14,   '7',      0,  0, "Speed 7", "1.4 times the read rate."},
    {310, setSpeed,    16,   '8',      0,  0, "Speed 8", "1.6 times the read rate."},
    {311, setSpeed,    18,   '9',      0,  0, "Speed 9", "1.8 times the read rate."},
    {312, setSpeed,    -2,   '1', FSHIFT,  0, "Reverse 1", "Back at a fifth of the read rate."},
    {313, setSpeed,    -4,   '2', FSHIFT,  0, "Reverse 2", "Back at two fifths of the read rate."},
    {314, setSpeed,    -6,   '3', FSHIFT,  0, "Reverse 3", "Back at three fifths of the read rate."},
    {315, setSpeed,    -8,   '4', FSHIFT,  0, "Reverse 4", "Back at four fifths of the read rate."},
    {316, setSpeed,   -10,   '5', FSHIFT,  0, "Reverse 5", "Back at the read rate."},
    {317, setSpeed,   -12,   '6', FSHIFT,  0, "Reverse 6", "Back at 1.2 times the read rate."},
    {318, setSpeed,   -14,   '7', FSHIFT,  0, "Reverse 7", "Back at 1.4 times the read rate."},
    {319, setSpeed,   -16,   '8', FSHIFT,  0, "Reverse 8", "Back at 1.6 times the read rate."},
    {320, setSpeed,   -18,   '9', FSHIFT,  0, "Reverse 9", "Back at 1.8 times the read rate."},
    {321, stepLines,   -1,   VK_LEFT,  0,  9, "Line back", "To the line above."},
    {322, stepLines,    1,   VK_RIGHT, 0, 10, "Line on", "To the line below."},
    {323, stepStories, -1,   VK_PRIOR, 0,  2, "Story back", "To the story before this one."},
    {324, stepStories,  1,   VK_NEXT,  0,  3, "Story on", "To the next story."},
    {325, goToStart,    0,   VK_HOME,  0,  4, "Beginning", "To the beginning of the script."},
    {326, goToEnd,      0,   VK_END,   0, 11, "End", "To the end of the script."},
    {327, toggleMarker, 0,   'M',      0,  6, "Marker", "Marks the line that is read, or takes its mark away."},
    {328, stepMarkers,  1,   'N',      0,  8, "Next marker", "To the next marked line."},
    {329, stepMarkers, -1,   'N', FSHIFT,  7, "Last marker", "To the marked line before."},
    {330, blank,        0,   'B',      0,  5, "Blank", "Blanks the displays, and shows the text again."},
    {331, askForStory,  0,   'G',      0,  0, "Go to story", "To the story whose number follows, ended by Return."},
    {leaveView, leave,  0,   VK_ESCAPE, 0, 0, "Leave", "Back to the desk."},
};
// clang-format on
} // namespace detail
using detail::promptCommands;

// Null for a number that is no command of the view.
const PromptCommand* FindPromptCommand(UINT id);

// Tables of keys in the command list. Buttons of a hand controller stand for the keys from F13 on.
inline constexpr UINT deskKeys = 401, viewKeys = 402, controllerKeys = 403, fixedDeskKeys = 411,
                      fixedViewKeys = 412, fixedControllerKeys = 413;
inline constexpr int mostButtons = 12;
constexpr int KeyOfButton(int button) { return VK_F1 + 12 + button - 1; }

// The one that holds now; null before it is registered.
HACCEL KeyTable(UINT table);
std::vector<ACCEL> KeyRows(UINT table);

} // namespace prompter
