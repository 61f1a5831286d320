// The commands of the workbench, and the numbers of its windows and resources.
#pragma once

#include "corekit/platform/Types.h"

enum Command : UINT {
    commandNew = 32771,
    commandOpen,
    commandSave,
    commandPlay,
    commandStop,
    commandFaster,
    commandSlower,
    commandMark,
    commandPictures,
    commandTable,
    commandNames,
    commandCustomise,
    commandClock,
    commandExit,
    commandFacts,
    commandColour, // from the pane of colours
    clockHides,
    clockOnTop
};
inline constexpr int pictureCount = 11; // of the commands with a button: the first ones

inline constexpr UINT smallPictures = 201, largePictures = 202, mainKeys = 301, fixedKeys = 302,
                      clockDialog = 401, storyDialog = 402;
inline constexpr int storyTitle = 1101, storyBegin = 1102, storyText = 1103, storyGround = 1104,
                     storyChannel = 1105;
inline constexpr UINT coloursBar = 820, picturesBar = 821, macroBar = 822, firstToolbar = 830,
                      secondToolbar = 831;
inline constexpr UINT paneState = 501, paneProgress = 502;
