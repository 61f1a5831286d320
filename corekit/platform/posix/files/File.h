// An open file as an object behind a handle.
#pragma once

#include "corekit/platform/posix/files/ShareTable.h"
#include "corekit/platform/posix/ports/IoObject.h"

#include <cstdint>
#include <mutex>
#include <string>

namespace corekit::detail {

// The machine's form of a file name: `\` becomes `/`.
std::string nativePath(const char* name);

class File : public IoObject {
public:
    static constexpr ObjectKind objectKind = ObjectKind::file;

    // An access of 0 takes no part in sharing; any other was entered with claimFile, which this object
    // undoes.
    File(Descriptor descriptor, const FileId& id, const FileUse& use, Flow flow);
    ~File() override;

    // Removes the file of this name, if it is still the same file, when this object goes.
    void deleteOnClose(std::string absolutePath) { m_deletePath = std::move(absolutePath); }

    // Whether this is a file with places, and not a pipe or a terminal.
    bool hasPosition() const { return flow() == Flow::placed; }

    std::mutex mutex;          // guards position, and is held through a transfer that uses it
    std::int64_t position = 0; // never below 0

    // Keeps other processes out, or those that want to keep this one out; false when one of them is there.
    bool lockTowardsOthers();

private:
    FileId m_id;
    FileUse m_use;
    int m_locker = 0; // the process that has the lock
    std::string m_deletePath;
};

} // namespace corekit::detail
