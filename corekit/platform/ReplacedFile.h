// Files that are written anew as a whole.
#pragma once

#include "corekit/platform/Export.h"

#include <string>
#include <string_view>

namespace corekit {

// A new file that takes the place of another whole, or not at all.
//
// It is written beside its target, under a name of its own that nobody else holds, and Commit puts it in the
// target's place with the target's rights. What is not committed goes away with the object; what a killed
// writer left, the next one for the same target removes. A target that is a link is replaced where the link
// points to. One that is no plain file (a pipe, a device) is written to directly. On failure the last error
// is set, and the target is what it was; only where its folder cannot be put on the device it is the new one.
class COREKIT_API ReplacedFile {
public:
    explicit ReplacedFile(const std::string& target);
    ~ReplacedFile();
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    // Whether there is something to write to.
    explicit operator bool() const { return m_descriptor >= 0; }
    int OpenDescriptor() const { return m_descriptor; }
    const std::string& Path() const { return m_path; } // of what is written to, until it has the other name
    bool Write(std::string_view bytes);
    // All that was written is on the device before the name changes, and the name when this returns. Without
    // that a loss of power may take old and new.
    enum class Sync { toDevice, none };
    bool Commit(Sync sync = Sync::toDevice);

private:
    void Open();
    void WriteThrough();
    bool MakeBeside(int slot);
    bool KeepRights();

    std::string m_target;
    std::string m_path;
    int m_descriptor = -1;
    bool m_exists = false;
    bool m_isBeside = false; // there is a file to remove
};

// Those who read a file, change it and write it anew take turns while they hold this. Where the folder cannot
// be locked, nobody waits.
class COREKIT_API FileTurn {
public:
    explicit FileTurn(const std::string& target);
    ~FileTurn();
    FileTurn(const FileTurn&) = delete;
    FileTurn& operator=(const FileTurn&) = delete;

private:
    int m_folder;
};

} // namespace corekit
