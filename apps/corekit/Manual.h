// What the tool tells of itself beside its help, made from the same descriptions: manual pages, and
// completion for shells.
#pragma once

#include <string>

namespace CLI {
class App;
}

// Writes corekit.1 and a page for each subcommand, such as corekit-ole.1, into a folder that is there. Throws
// std::runtime_error for what cannot be written. The form is that of man(7).
void WriteManualPages(const CLI::App& app, const std::string& folder);

// A script for "bash" or "zsh", which completes subcommands, options, their choices and names of files.
std::string CompletionScript(const CLI::App& app, const std::string& shell);
