// A property store in a file of its own.
#pragma once

#include "corekit/stores/PropertyStore.h"

#include <optional>
#include <string>

namespace prompter {

// Nothing for a file that is missing or no property store.
std::optional<CPropertyStore> ReadStoreFile(const std::string& path);
// Makes the folder if need be. False with a last error; the file is then what it was.
bool WriteStoreFile(const std::string& path, CPropertyStore store);
// Writes only what differs from `before`, so that two programs with one file keep what the other has changed.
bool WriteStoreChanges(const std::string& path, CPropertyStore store, CPropertyStore before);

} // namespace prompter
