// What the commands write: standard output, and files.
#pragma once

#include <string>
#include <string_view>

// Standard output takes data as they are; on a terminal, control characters in them are shown in writing, so
// that nothing from outside steers it. All throw std::runtime_error once the output takes no more.
[[gnu::format(printf, 1, 2)]] void Print(const char* format, ...);
void PrintBytes(std::string_view bytes);
void PrintLine(std::string_view text);
// Brings out what is still held back. Every program ends with this.
void FinishOutput();

// Throws std::runtime_error with the name and the system's reason for the last failure.
[[noreturn]] void FailFor(const std::string& name);
// Puts a file with these bytes in the target's place, or throws and leaves the target as it was.
void WriteOutput(const std::string& target, std::string_view bytes);
