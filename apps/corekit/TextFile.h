// Text files as a person saves them: UTF-8, or UTF-16 with a byte order mark.
#pragma once

#include <string>
#include <vector>

// The lines of the file, "-" being standard input, without their ends (LF, CRLF or CR). Bytes that are not
// UTF-8 become U+FFFD. Throws std::runtime_error with the reason when the file cannot be read.
std::vector<std::u16string> ReadLines(const std::string& path);

// UTF-8 to UTF-16 and back; what is malformed becomes U+FFFD.
std::u16string Utf16(std::string_view utf8);
std::string Utf8(std::u16string_view utf16);
