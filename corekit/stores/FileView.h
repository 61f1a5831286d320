// Reading a growing file through memory: a view that is made when it pays and made anew when the file has
// outgrown it, so that a read costs no system call.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

class FileView {
public:
    FileView() = default;
    FileView(const FileView&) = delete;
    FileView& operator=(const FileView&) = delete;
    ~FileView() { Release(); }

    // The bytes at that place of the file, which has fileSize of them; good until the next call. Null where
    // the caller had better read them: they lie behind the view, or the file cannot be seen as memory.
    const BYTE* Find(HANDLE file, std::uint64_t fileSize, DWORD offset, DWORD size);
    // Before the file is cut to `fileSize` or closed.
    void ReleaseBeyond(std::uint64_t fileSize);
    void Release();

private:
    void Renew(HANDLE file, std::uint64_t fileSize);

    const BYTE* m_base = nullptr;
    std::uint64_t m_size = 0;
    bool m_refused = false;
};

} // namespace corekit::detail
