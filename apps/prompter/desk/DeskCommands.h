// The commands of the desk: where they stand in its menu, and the keys that they have at first.
#pragma once

#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Types.h"

#include <cstddef>

namespace prompter {

// The numbers are kept with the keys of users: new ones go to the end.
enum DeskCommand : UINT {
    saveScript = 200,
    saveScriptAs,
    quitDesk,
    addStory,
    removeStory,
    moveStoryUp,
    moveStoryDown,
    skipStory,
    keepStory,
    startPrompt,
    startPromptAtCursor,
    leavePrompt,
    mirrorSides,
    mirrorTop,
    turnDisplays,
    largerText,
    smallerText,
    wider,
    narrower,
    nextKeyboard,
    showSettings,
    showKeyboards,
    newScript,
    openScript,
    changeKeys,
    lastDeskCommand = changeKeys,
};

struct DeskMenuItem {
    const char* menu; // the menu that it stands in; those of one menu follow each other
    const char*
        text; // null for a line between items; a key that is not for the user to change stands behind a tab
    UINT command;
    int key;   // virtual key, 0 for none
    BYTE held; // FCONTROL, FSHIFT, FALT
    const char* description;
};

// clang-format off
inline constexpr DeskMenuItem deskMenu[] = {
    {"&File", "&New", newScript, 'N', FCONTROL | FSHIFT, "Begins a script."},
    {"&File", "&Open...", openScript, 'O', FCONTROL, "Opens another script."},
    {"&File", "&Save", saveScript, 'S', FCONTROL, "Writes the script to its file."},
    {"&File", "Save &as...", saveScriptAs, 'S', FCONTROL | FSHIFT, "Writes the script to another file."},
    {"&File", nullptr, 0, 0, 0, nullptr},
    {"&File", "&Quit", quitDesk, 'Q', FCONTROL, "Ends the prompter."},
    {"&Story", "&New", addStory, 'N', FCONTROL, "Begins a story behind this one."},
    {"&Story", "Move &up", moveStoryUp, VK_UP, FCONTROL | FSHIFT, "Moves the story up by one."},
    {"&Story", "Move &down", moveStoryDown, VK_DOWN, FCONTROL | FSHIFT, "Moves the story down by one."},
    {"&Story", "&Skip, or read again", skipStory, 'K', FCONTROL, "Leaves the story out, or takes it in again."},
    {"&Story", "&Keep this one of the same file", keepStory, 'K', FCONTROL | FSHIFT,
     "Of stories that came from the same file only this one stays."},
    {"&Story", nullptr, 0, 0, 0, nullptr},
    {"&Story", "&Remove", removeStory, VK_DELETE, FCONTROL | FSHIFT, "Takes the story out of the script."},
    {"&Prompt", "&Start", startPrompt, VK_F1 + 4, 0, "Shows the prompt on its displays."},
    {"&Prompt", "Start at the &cursor", startPromptAtCursor, VK_F1 + 4, FSHIFT,
     "Shows the prompt from the line where the editor's cursor stands."},
    {"&Prompt", nullptr, 0, 0, 0, nullptr},
    {"&Prompt", "Mirror &left and right", mirrorSides, 'M', FCONTROL | FSHIFT, "Mirrors the displays that show the prompt."},
    {"&Prompt", "Mirror &top and bottom", mirrorTop, 'T', FCONTROL | FSHIFT, "Mirrors the displays that show the prompt."},
    {"&Prompt", "T&urn by a quarter", turnDisplays, 'R', FCONTROL | FSHIFT, "Turns the displays that show the prompt."},
    {"&Prompt", nullptr, 0, 0, 0, nullptr},
    {"&Prompt", "La&rger", largerText, VK_OEM_PLUS, FCONTROL, "Makes the text of the prompt larger."},
    {"&Prompt", "S&maller", smallerText, VK_OEM_MINUS, FCONTROL, "Makes the text of the prompt smaller."},
    {"&Prompt", "&Wider lines", wider, VK_OEM_PERIOD, FCONTROL, "Makes the margins of the prompt narrower."},
    {"&Prompt", "&Narrower lines", narrower, VK_OEM_COMMA, FCONTROL, "Makes the margins of the prompt wider."},
    {"&Prompt", nullptr, 0, 0, 0, nullptr},
    {"&Prompt", "S&ettings...", showSettings, VK_F1 + 3, 0, "Read rate, look, displays, files and remote control."},
    {"&Prompt", "&Keys...", changeKeys, VK_F1 + 3, FSHIFT, "Gives commands other keys."},
    {"&Keyboard", "&Choose...", showKeyboards, 'K', FCONTROL | FALT, "Shows the keyboards, one of which types."},
    {"&Keyboard", "&Next\tCtrl + Alt + Right Arrow", nextKeyboard, 0, 0, nullptr},
};
// clang-format on

} // namespace prompter
