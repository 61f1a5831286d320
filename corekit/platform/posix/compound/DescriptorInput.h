// A file as input for the compound file library: one descriptor, which no other program gets, shared by all
// that the library makes of it.
#pragma once

#include <string>

struct _GsfInput; // of the library

namespace corekit::detail {

// Null if the file cannot be opened.
_GsfInput* OpenInput(const std::string& path);

} // namespace corekit::detail
