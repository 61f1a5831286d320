// The commands of the desk: where they stand in its menu, and their keys.
#pragma once

#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Types.h"

#include <cstddef>

namespace prompter {

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
    lastDeskCommand = showKeyboards,
};

struct DeskMenuItem {
    const char* menu; // the menu that it stands in; those of one menu follow each other
    const char* text; // null for a line between items
    UINT command;
    int key;   // virtual key, 0 for none
    BYTE held; // FCONTROL, FSHIFT, FALT
};

inline constexpr int keyF4 = 0x73, keyF5 = 0x74, keyUp = 0x26, keyDown = 0x28;

// clang-format off
inline constexpr DeskMenuItem deskMenu[] = {
    {"&File", "&Save\tCtrl+S", saveScript, 'S', FCONTROL},
    {"&File", "Save &as...\tCtrl+Shift+S", saveScriptAs, 'S', FCONTROL | FSHIFT},
    {"&File", nullptr, 0, 0, 0},
    {"&File", "&Quit\tCtrl+Q", quitDesk, 'Q', FCONTROL},
    {"&Story", "&New\tCtrl+N", addStory, 'N', FCONTROL},
    {"&Story", "Move &up\tCtrl+Shift+Up", moveStoryUp, keyUp, FCONTROL | FSHIFT},
    {"&Story", "Move &down\tCtrl+Shift+Down", moveStoryDown, keyDown, FCONTROL | FSHIFT},
    {"&Story", "&Skip, or read again\tCtrl+K", skipStory, 'K', FCONTROL},
    {"&Story", "&Keep this one of the same file", keepStory, 0, 0},
    {"&Story", nullptr, 0, 0, 0},
    {"&Story", "&Remove", removeStory, 0, 0},
    {"&Prompt", "&Start\tF5", startPrompt, keyF5, 0},
    {"&Prompt", "Start at the &cursor\tShift+F5", startPromptAtCursor, keyF5, FSHIFT},
    {"&Prompt", nullptr, 0, 0, 0},
    {"&Prompt", "Mirror &left and right", mirrorSides, 0, 0},
    {"&Prompt", "Mirror &top and bottom", mirrorTop, 0, 0},
    {"&Prompt", "T&urn by a quarter", turnDisplays, 0, 0},
    {"&Prompt", nullptr, 0, 0, 0},
    {"&Prompt", "La&rger\tCtrl++", largerText, VK_OEM_PLUS, FCONTROL},
    {"&Prompt", "S&maller\tCtrl+-", smallerText, VK_OEM_MINUS, FCONTROL},
    {"&Prompt", "&Wider lines\tCtrl+.", wider, VK_OEM_PERIOD, FCONTROL},
    {"&Prompt", "&Narrower lines\tCtrl+,", narrower, VK_OEM_COMMA, FCONTROL},
    {"&Prompt", nullptr, 0, 0, 0},
    {"&Prompt", "S&ettings...\tF4", showSettings, keyF4, 0},
    {"&Keyboard", "&Choose...\tCtrl+Alt+K", showKeyboards, 'K', FCONTROL | FALT},
    {"&Keyboard", "&Next\tCtrl+Alt+Right", nextKeyboard, 0, 0},
};
// clang-format on

} // namespace prompter
