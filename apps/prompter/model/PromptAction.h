// What keys and hand controllers ask of the prompt view.
#pragma once

namespace prompter {

enum class PromptAction {
    startOrStop,
    faster,
    slower,
    setSpeed, // value: tenths of the read rate
    stepLines,
    stepStories,
    goToStart,
    goToEnd,
    toggleMarker,
    stepMarkers,
    blank,
    askForStory, // digits follow, Return ends them
    leave,
};

} // namespace prompter
