// The line in which a service tells its state, for people and for those who wait for it.
#pragma once

#include "corekit/platform/Services.h"

#include <string>
#include <string_view>

namespace corekit::detail {

// "Starting, step 3"
std::string statusText(const SERVICE_STATUS& status);

struct ToldStatus {
    DWORD state = 0; // 0 for a line of another form
    DWORD checkPoint = 0;
};
COREKIT_API ToldStatus statusIn(std::string_view text);

} // namespace corekit::detail
