// The tool's command line.
#pragma once

#include "Doctor.h"

namespace CLI {
class App;
}

// What needs the toolkit. It is in a module of its own, so that all else starts without loading that.
struct PictureParts {
    void (*addCommands)(CLI::App& app);  // null: none
    std::vector<Finding> (*findFaces)(); // for the doctor; null: it does not look
};

// Runs what the command line names and returns the tool's exit code.
int RunTool(int argc, char** argv, const PictureParts& pictures);
