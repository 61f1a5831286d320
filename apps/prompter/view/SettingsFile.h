// The prompter's settings in one property-store file beside the user's other settings.
#pragma once

#include "view/Session.h"

#include "model/OutputPlan.h"
#include "remote/RemoteServer.h"

#include "corekit/stores/PropertyStore.h"

#include <string>
#include <vector>

namespace prompter {

struct Settings {
    SessionSettings session;
    int speed = Scroller::stepsOfOne;
    std::vector<OutputSettings> outputs;
    RECT desk{80, 60, 1360, 860}; // where the operator's window stood
    std::string newsFolder;       // empty: none is watched
    int controllerPort = 0;       // number of the hand controller's serial port, 0 for none
    bool hasRemote = false;       // whether remote control is taken, and where
    RemotePlace remote{"127.0.0.1", 4000, ""};
    int codePage = 0;    // of scripts and news without a mark, 0 for UTF-8
    CPropertyStore keys; // what the user gave commands other keys, as the command list keeps it
};

// $XDG_CONFIG_HOME/corekit/prompter.settings, else ~/.config/...
std::string UsualSettingsPath();
// Defaults for what is missing, wild or unreadable.
Settings LoadSettings(const std::string& path);
// False with a last error; the file is then what it was. Of what is the same as `before`, the file keeps what
// another prompter has written.
bool SaveSettings(const std::string& path, const Settings& settings, const Settings& before = {});

} // namespace prompter
