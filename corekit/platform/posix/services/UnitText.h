// The text of a unit file: sections of lines "Key=value". Changing a key leaves every other line as it is.
#pragma once

#include "corekit/platform/Export.h"

#include <string>
#include <string_view>
#include <vector>

namespace corekit::detail {

class COREKIT_API UnitText {
public:
    UnitText() = default;
    // Any text; lines that are continued by a backslash are one.
    explicit UnitText(std::string_view text);

    // The values of the key in the section, in their order, without blanks around them. As the manager does,
    // an empty value forgets those before it.
    std::vector<std::string> values(std::string_view section, std::string_view key) const;
    // The last one; empty for none.
    std::string value(std::string_view section, std::string_view key) const;
    // Puts one line "key=value" in the place of all of them, making the section if need be; an empty value
    // takes the key out. The value holds no line end.
    void set(std::string_view section, std::string_view key, std::string_view value);
    void removeSection(std::string_view section);

    std::string text() const;

private:
    struct Line {
        std::string section; // that it stands in
        std::string key;     // empty for a heading, a comment and whatever else
        std::string value;
        std::string text; // as it stands in the file, without its line end
    };

    std::vector<Line> m_lines;
};

// --- values whose signs mean something to the manager, and back

// A service's name as a unit's, with ".service" at its end; empty for a name that no unit can have.
COREKIT_API std::string unitNameOf(std::string_view serviceName);
// One line of plain text: line ends and other control characters become blanks, and what is no UTF-8 is taken
// for the active code page.
COREKIT_API std::string escapeText(std::string_view text);
COREKIT_API std::string unescapeText(std::string_view value);
// A command line of words, of which the first is the program.
COREKIT_API std::string escapeCommand(const std::vector<std::string>& words);
COREKIT_API std::vector<std::string> unescapeCommand(std::string_view value);

// A command line as callers give it, in words: blanks separate, quotes keep them together, \" is a quote. A
// program's path whose blanks stand outside of quotes ends where a file of that name is found.
COREKIT_API std::vector<std::string> splitCommandLine(std::string_view text);

} // namespace corekit::detail
