// Writing a compound file anew.
#pragma once

#include "corekit/platform/posix/compound/CompoundTree.h"

namespace corekit::detail {

// Writes the tree below a root to an empty file; false with the last error set if that fails. Afterwards the
// nodes stand in the order of the file's directory.
bool writeCompoundFile(CompoundNode& root, int descriptor, std::vector<CompoundNode*>& nodes);

} // namespace corekit::detail
