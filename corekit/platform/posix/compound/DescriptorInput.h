// A file as input for the compound file library: one descriptor, which no other program gets, shared by all
// that the library makes of it.
#pragma once

#include <gsf/gsf-input.h>
#include <string>

namespace corekit::detail {

// Null if the file cannot be opened.
GsfInput* OpenInput(const std::string& path);

} // namespace corekit::detail
