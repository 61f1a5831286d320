// A new file that takes the place of another whole, or not at all.
#pragma once

#include "corekit/platform/posix/files/File.h"

#include <string>
#include <string_view>
#include <sys/types.h>

namespace corekit::detail {

// Beside the target a file without its name is written; Commit gives it the target's rights and name. What is
// not committed goes away. A target that is a link is replaced where the link points to. On failure errno is
// set.
class ReplacedFile {
public:
    explicit ReplacedFile(const std::string& target);
    ~ReplacedFile();
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    explicit operator bool() const { return static_cast<bool>(m_descriptor); }
    int Descriptor() const { return m_descriptor.get(); }
    const std::string& Path() const { return m_path; } // of the new file, until it has the other name
    bool Write(std::string_view bytes);
    // All that was written is on the device before the name changes.
    bool Commit();

private:
    std::string m_target;
    std::string m_path; // empty: nothing to remove
    detail::Descriptor m_descriptor;
    bool m_exists = false;
    mode_t m_mode = 0;
};

} // namespace corekit::detail
