// A record file as bytes: the open file, its header as it is held in memory, and blocks that are read and
// written. Reads go through a view where there is one. One thread at a time.
#pragma once

#include "corekit/platform/Files.h"
#include "corekit/stores/FileView.h"
#include "corekit/stores/RecordFileFormat.h"

namespace corekit::detail {

// With the reason and one of the messages of record files.
[[noreturn]] void throwRecordFileError(DWORD reason, UINT message);

class RecordFileImage {
public:
    RecordFileImage() = default;
    RecordFileImage(const RecordFileImage&) = delete;
    RecordFileImage& operator=(const RecordFileImage&) = delete;
    ~RecordFileImage() { Close(); }

    // False if the file exists or cannot be made.
    bool Create(const char* name);
    // False if it cannot be opened. The header is not read.
    bool OpenExisting(const char* name);
    void Close() noexcept;
    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }

    RecordFileHeader& Header() { return m_header; }
    const RecordFileHeader& Header() const { return m_header; }
    std::uint64_t BytesOnDisk() const { return m_bytesOnDisk; }
    DWORD WholeSectors(DWORD size) const; // size, rounded up to whole sectors
    DWORD SectorCount(DWORD size) const;  // the same as a number of sectors

    // All of these throw.
    void ReadHeader();
    void WriteHeader() { Write(0, &m_header, sizeof m_header); }
    void Read(DWORD offset, void* data, DWORD size);
    // What is not read again, past the view.
    void ReadOnce(DWORD offset, void* data, DWORD size);
    void Write(DWORD offset, const void* data, DWORD size);
    void SetSize(DWORD size);
    // Returns when all that was written is on the device.
    void FlushToDevice();

private:
    HANDLE m_file = INVALID_HANDLE_VALUE;
    RecordFileHeader m_header{};
    FileView m_view;
    std::uint64_t m_bytesOnDisk = 0;
};

} // namespace corekit::detail
