#include "corekit/stores/EntryPath.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/Module.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/FileAttributes.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/FileTimes.h"
#include "corekit/resources/Messages.h"

#include <string_view>

namespace {
constexpr const char* separators = "/\\";
constexpr std::size_t longestName = 4000, longestPart = 255;
constexpr int mostParts = 128;

bool hasDrive(std::string_view name)
{
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    return name.size() >= 2 && name[1] == ':' && isLetter(name[0]);
}

// Calls visit with every leading part of the name that ends before a separator, then with all of it, until it
// returns false.
template <class Visit>
bool forEachPart(const std::string& name, Visit visit)
{
    for (std::size_t at = name.find_first_of(separators, 1); at != std::string::npos;
         at = name.find_first_of(separators, at + 1))
        if (!visit(name.substr(0, at))) return false;
    return visit(name);
}
} // namespace

namespace corekit {

bool IsInsideName(const std::string& name)
{
    if (name.empty() || name.size() > longestName || hasDrive(name)) return false;
    if (name.find_first_of(separators) == 0 || name.find('\0') != name.npos) return false;
    std::string_view rest = name;
    for (int parts = 1; parts <= mostParts; ++parts) {
        const std::size_t end = rest.find_first_of(separators);
        const std::string_view part = rest.substr(0, end);
        if (part == ".." || part.size() > longestPart) return false;
        if (end == std::string_view::npos) return part != ".";
        rest.remove_prefix(end + 1);
    }
    return false;
}

std::string LastPart(const std::string& name) { return name.substr(name.find_last_of(separators) + 1); }

namespace detail {

std::string pathBelow(const std::string& folder, const std::string& name)
{
    return folder.empty() ? name : folder + "\\" + name;
}

bool leadsThroughLink(const std::string& folder, const std::string& name)
{
    return !forEachPart(name, [&folder](const std::string& part) {
        const DWORD attributes = GetFileAttributesA(pathBelow(folder, part).c_str());
        return attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT);
    });
}

bool makeFolders(const std::string& folder, const std::string& name)
{
    return forEachPart(name, [&folder](const std::string& part) {
        const std::string path = pathBelow(folder, part);
        if (CreateDirectoryA(path.c_str(), nullptr)) return true;
        const DWORD why = GetLastError();
        if (why != ERROR_PATH_NOT_FOUND && why != ERROR_FILE_NOT_FOUND) return true;
        CString text;
        AfxFormatString1(text, message::createFolderFailed, path.c_str());
        StockMessageBox(nullptr, text, MB_OK | MB_ICONSTOP);
        return false;
    });
}

void changeFileDate(const std::string& path, DWORD dosDate)
{
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    FILETIME local, utc, creation, access, write;
    if (GetFileTime(file, &creation, &access, &write) &&
        DosDateTimeToFileTime(HIWORD(dosDate), LOWORD(dosDate), &local) &&
        LocalFileTimeToFileTime(&local, &utc))
        SetFileTime(file, &utc, &access, &utc);
    CloseHandle(file);
}

} // namespace detail
} // namespace corekit
