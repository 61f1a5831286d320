// The user as whom the process works.
#pragma once

#include <string>

namespace corekit::detail {

// Empty where the user has no entry.
struct Account {
    std::string name, home;
};
Account currentAccount();

} // namespace corekit::detail
