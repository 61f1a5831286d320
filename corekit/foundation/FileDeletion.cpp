#include "corekit/foundation/FileDeletion.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/FileTimes.h"
#include "corekit/platform/FindFile.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace {
constexpr DWORDLONG stepsPerDay = 864'000'000'000;

bool isFolder(const WIN32_FIND_DATAA& data) { return data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY; }

bool isDots(const WIN32_FIND_DATAA& data)
{
    return std::strcmp(data.cFileName, ".") == 0 || std::strcmp(data.cFileName, "..") == 0;
}

DWORDLONG steps(const FILETIME& time) { return DWORDLONG{time.dwHighDateTime} << 32 | time.dwLowDateTime; }

// Calls visit for every match but the dot entries, with its path.
template <class Visit>
void forEachMatch(const std::string& pattern, Visit visit)
{
    const std::string folder = pattern.substr(0, pattern.find_last_of("/\\") + 1);
    WIN32_FIND_DATAA data;
    const HANDLE search = FindFirstFileA(pattern.c_str(), &data);
    if (search == INVALID_HANDLE_VALUE) return;
    struct Closing {
        HANDLE search;
        ~Closing() { FindClose(search); }
    } closing{search};
    do
        if (!isDots(data)) visit(folder + data.cFileName, data);
    while (FindNextFileA(search, &data));
}

[[noreturn]] void throwFolder(const char* directory)
{
    ThrowChainedException(GetLastErrorException(), message::deleteDirectoryFailed, directory);
}
} // namespace

void File_DeleteFile(const char* path, int force)
{
    if (DeleteFileA(path) || GetLastError() == ERROR_FILE_NOT_FOUND) return;
    if (force) {
        const DWORD why = GetLastError();
        if (_chmod(path, _S_IREAD | _S_IWRITE) == 0 && DeleteFileA(path)) return;
        if (GetLastError() == ERROR_FILE_NOT_FOUND) SetLastError(why);
    }
    ThrowChainedException(GetLastErrorException(), message::deleteFileFailed, path);
}

void File_DeleteFilesMatchingPattern(const char* pattern, int force)
{
    forEachMatch(pattern ? pattern : "", [force](const std::string& path, const WIN32_FIND_DATAA& data) {
        if (!isFolder(data)) File_DeleteFile(path.c_str(), force);
    });
}

void File_DeleteFilesOlderThan(const char* pattern, int days, int force)
{
    FILETIME time;
    GetSystemTimeAsFileTime(&time);
    const DWORDLONG now = steps(time);
    forEachMatch(pattern ? pattern : "", [=](const std::string& path, const WIN32_FIND_DATAA& data) {
        const DWORDLONG written = steps(data.ftLastWriteTime);
        if (isFolder(data) || written >= now) return;
        if (static_cast<LONGLONG>((now - written) / stepsPerDay) > days) File_DeleteFile(path.c_str(), force);
    });
}

void File_DeleteDirectoryContents(const char* directory, int force)
{
    if (!directory || !*directory) return; // with a separator behind it that would be the root
    // Open searches do not pile up while the folders below are emptied.
    std::vector<std::string> folders;
    SetLastError(NO_ERROR);
    forEachMatch(std::string(directory) + "\\*.*",
                 [&](const std::string& path, const WIN32_FIND_DATAA& data) {
                     if (isFolder(data))
                         folders.push_back(path);
                     else
                         File_DeleteFile(path.c_str(), force);
                 });
    for (const std::string& folder : folders) File_DeleteDirectoryAndContents(folder.c_str(), force);
}

void File_DeleteDirectoryAndContents(const char* directory, int force)
{
    const DWORD attributes = GetFileAttributesA(directory);
    if (attributes == INVALID_FILE_ATTRIBUTES) throwFolder(directory);
    if (!(attributes & FILE_ATTRIBUTE_REPARSE_POINT)) File_DeleteDirectoryContents(directory, force);
    if (!RemoveDirectoryA(directory)) throwFolder(directory);
}

void CreateDirectoryAndParents(const char* path)
{
    if (CreateDirectoryA(path, nullptr) || GetLastError() == ERROR_ALREADY_EXISTS) return;
    const std::string text = path ? path : "";
    const std::size_t cut = text.find_last_of("/\\");
    const std::string above = text.substr(0, cut == std::string::npos ? 0 : cut);
    const bool isRoot = above.empty() || (above.size() == 2 && above[1] == ':');
    if (isRoot || GetLastError() != ERROR_PATH_NOT_FOUND)
        ThrowChainedException(nullptr, message::createFoldersFailed);
    CreateDirectoryAndParents(above.c_str());
    if (!CreateDirectoryA(path, nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
        ThrowChainedException(nullptr, message::createFoldersFailed);
}
