// Tables that the commands print: columns that line up for a reader, JSON for a program.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

using TableRows = std::vector<std::vector<std::string>>;

// Gives a command the option --json, by which PrintTable prints an array of objects.
void OfferJson(CLI::App& command);
bool IsJsonWanted();
// A text in quotes, as JSON has it; bytes that are not UTF-8 become U+FFFD.
std::string JsonText(std::string_view text);

// Prints rows in columns as wide as their widest cell, the first row as the heading. Text is measured in
// characters, combining marks not counted. In JSON each row is an object that has the headings as names, and
// cells of the columns named are numbers, null where they are empty.
void PrintTable(const TableRows& rows, std::initializer_list<std::string_view> numbers = {});
