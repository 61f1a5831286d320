// Which displays show the prompt, and how.
#pragma once

#include "model/FrameTransform.h"

#include "corekit/platform/Types.h"

#include <span>
#include <string>
#include <vector>

namespace prompter {

// A display that is there.
struct Display {
    std::string name;        // of its connector: the same when it comes back
    std::string description; // maker and model
    RECT place{};
};

// What the user wants of a display, whether it is there or not.
struct OutputSettings {
    std::string display; // its name
    FrameForm form{};
    bool isOn = true;
};

// A display that is to show the prompt now.
struct PlannedOutput {
    std::string display;
    RECT place{};
    FrameForm form{};
};

// Those of the wanted displays that are there, in the order of the displays.
std::vector<PlannedOutput> PlanOutputs(std::span<const OutputSettings> wanted,
                                       std::span<const Display> there);
// Where none of them is there: the first display on which the desk does not stand, else the desk's own. Empty
// without a display.
std::vector<PlannedOutput> PlanStandIn(std::span<const OutputSettings> wanted, std::span<const Display> there,
                                       POINT desk);

// The window's place, moved and made smaller as far as it takes to be, with its frame, wholly on one display:
// that of its middle, else the first. Without a display, as it is.
RECT PlaceInSight(const RECT& wanted, std::span<const Display> there);

// The settings of that display; made, and off, if there are none.
OutputSettings& SettingsOf(std::vector<OutputSettings>& wanted, const std::string& display);

} // namespace prompter
