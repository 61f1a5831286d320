// Message texts with numbered inserts: %1, %2!d!, %3!-8.3s! and the escapes %n %r %0.
#pragma once

#include <cstddef>
#include <string_view>

namespace corekit::detail {

// What the variable argument of an insert is.
enum class ArgumentKind : unsigned char { unused, integer, integer64, pointer, text, wideText, wideChar };

// One insert of a message text.
struct MessageInsert {
    static constexpr int maxNumber = 99;
    static constexpr int maxWidth = 65535;

    int number = 0;         // of its first argument
    std::string_view flags; // -+0# and blanks
    int width = -1;         // -1 for none
    int precision = -1;     // -1 for none
    bool starWidth = false;
    bool starPrecision = false;
    bool isShort = false;
    ArgumentKind kind = ArgumentKind::text;
    char conversion = 's';
    std::size_t length = 0; // characters of the text that it takes up, with the percent sign

    int ValueNumber() const { return number + starWidth + starPrecision; }

    // The insert at the start of `text`, which begins with a percent sign; its length is 0 if there is none.
    static MessageInsert Parse(std::string_view text);
};

} // namespace corekit::detail
