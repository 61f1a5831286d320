// Text cases as a table: one case a line, fields divided by tabs, code points in hexadecimal.
#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

inline std::u16string FromHex(const std::string& field)
{
    std::istringstream in(field);
    std::u16string text;
    for (unsigned code = 0; in >> std::hex >> code;) text += static_cast<char16_t>(code);
    return text;
}

inline std::vector<std::string> Split(const std::string& text, char divider)
{
    std::istringstream in(text);
    std::vector<std::string> fields;
    for (std::string field; std::getline(in, field, divider);) fields.push_back(field);
    return fields;
}

// The fields of each line that is neither empty nor a comment.
inline std::vector<std::vector<std::string>> TabbedCases(const std::string& path)
{
    std::ifstream file(path);
    std::vector<std::vector<std::string>> cases;
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line[0] != '#') cases.push_back(Split(line, '\t'));
    return cases;
}
