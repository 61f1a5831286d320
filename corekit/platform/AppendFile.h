// A file that one writer extends while others read it.
#pragma once

#include <memory>
#include <string_view>

namespace corekit::detail {

// One operation at a time.
class AppendFile {
public:
    AppendFile();
    AppendFile(AppendFile&&) noexcept;
    AppendFile& operator=(AppendFile&&) noexcept;
    ~AppendFile();

    // Opens the file, or makes it, ends a last line that somebody was cut off in, and keeps other writers
    // out: those of this process by the rules of CreateFileA with reading shared, those of other processes
    // that open it with this class too. False with the last error, 32 if there is a writer; what was open
    // stays open then.
    bool Open(const char* name);
    bool IsOpen() const { return m_file != nullptr; }
    void Close();

    // Adds the bytes in one write where the system takes them in one. If it does not take all of them, those
    // that it took are cut off again: false with the last error.
    bool Append(std::string_view bytes);

private:
    class Writer;
    std::unique_ptr<Writer> m_file;
};

} // namespace corekit::detail
