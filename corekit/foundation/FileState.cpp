#include "corekit/foundation/FileState.h"

#include "corekit/platform/FindFile.h"

#include <cstring>
#include <string>

int GetFileInformation(const char* path, _WIN32_FILE_ATTRIBUTE_DATA& data)
{
    WIN32_FIND_DATAA found{};
    const HANDLE search = FindFirstFileA(path, &found);
    if (search != INVALID_HANDLE_VALUE) FindClose(search);
    std::memcpy(&data, &found, sizeof data);
    return 1;
}

int File_GetLastModifyTime(const char* path, _FILETIME& time)
{
    _WIN32_FILE_ATTRIBUTE_DATA data;
    const int result = GetFileInformation(path, data);
    time = data.ftLastWriteTime;
    return result;
}

DWORD File_GetSize(const char* path)
{
    if (!path || !*path) return INVALID_FILE_SIZE;
    const HANDLE file = CreateFileA(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        const DWORD size = GetFileType(file) == FILE_TYPE_DISK ? GetFileSize(file, nullptr) : 0;
        CloseHandle(file);
        return size;
    }
    const std::string inside = std::string(path) + "\\."; // of a link, in the folder behind it
    return GetFileAttributesA(inside.c_str()) != INVALID_FILE_ATTRIBUTES ? 0 : INVALID_FILE_SIZE;
}

DWORDLONG GetFreeBytesOnDisk(const char* path)
{
    std::string root = path ? path : "";
    if (root.size() >= 3 && root[1] == ':' && root[2] == '\\') root.resize(3);
    DWORD sectors = 0, bytes = 0, freeClusters = 0;
    if (!GetDiskFreeSpaceA(root.c_str(), &sectors, &bytes, &freeClusters, nullptr)) return 0;
    return DWORDLONG{sectors} * bytes * freeClusters;
}
