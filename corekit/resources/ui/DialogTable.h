// The dialogs of this library.
#pragma once

#include "corekit/platform/DialogTemplate.h"

namespace corekit::detail {
std::span<const DialogTemplate> dialogTable();
} // namespace corekit::detail
