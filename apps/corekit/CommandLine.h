// From the words of the command line to a command that runs.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

// The words as the parser wants them, the last one first. It takes "[a,b]" for a list of values; such a word
// is marked, and TakeMarks has every option take the mark off again: what is typed is what arrives.
std::vector<std::string> MarkedWords(int count, char** words);
void TakeMarks(CLI::App& app);

// Throws std::runtime_error that names a subcommand that does not exist, and the one that is most like it.
void RequireKnownCommand(const CLI::App& app, int count, char** words);
