// An open file as an object behind a handle.
#pragma once

#include "corekit/platform/posix/HandleTable.h"
#include "corekit/platform/posix/ShareTable.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

namespace corekit::detail {

// The machine's form of a file name: `\` becomes `/`.
std::string nativePath(const char* name);

// Owns a descriptor.
class Descriptor {
public:
    explicit Descriptor(int fd = -1) : m_fd(fd) {}
    Descriptor(Descriptor&& other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~Descriptor();

    int get() const { return m_fd; }
    explicit operator bool() const { return m_fd >= 0; }

private:
    int m_fd;
};

class File : public Object {
public:
    static constexpr ObjectKind kKind = ObjectKind::file;

    // An access of 0 takes no part in sharing; any other was entered with claimFile, which this object
    // undoes.
    File(Descriptor descriptor, const FileId& id, const FileUse& use, bool hasPosition);
    ~File() override;

    // Removes the file of this name, if it is still the same file, when this object goes.
    void deleteOnClose(std::string absolutePath) { m_deletePath = std::move(absolutePath); }

    int descriptor() const { return m_descriptor.get(); }
    bool allows(DWORD access) const { return (m_use.access & access) != 0; }
    // Whether this is a file with places, and not a pipe or a terminal.
    bool hasPosition() const { return m_hasPosition; }

    std::mutex mutex;          // guards position, and is held through a transfer that uses it
    std::int64_t position = 0; // never below 0

private:
    Descriptor m_descriptor;
    FileId m_id;
    FileUse m_use;
    bool m_hasPosition;
    std::string m_deletePath;
};

} // namespace corekit::detail
