// Whether this process has the rights of those who look after the machine.
#pragma once

namespace corekit::detail {

enum class Administrator { no, listed, effective };

// By the process's credentials at the time of the call.
Administrator administratorState();

} // namespace corekit::detail
