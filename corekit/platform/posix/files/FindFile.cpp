#include "corekit/platform/FindFile.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/posix/files/FileFacts.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <unistd.h>
#include <vector>

namespace {
using namespace corekit::detail;

// A search keeps its folder open, so its matches stay those of the folder that it began in.
class Search : public Object {
public:
    static constexpr ObjectKind objectKind = ObjectKind::search;

    Search(Descriptor folder, std::vector<std::string> names)
        : Object(objectKind), m_folder(std::move(folder)), m_names(std::move(names))
    {
    }

    // The next name that is still there.
    bool Next(WIN32_FIND_DATAA& data)
    {
        while (m_next < m_names.size())
            if (Tell(m_names[m_next++], data)) return true;
        return false;
    }

private:
    bool Tell(const std::string& name, WIN32_FIND_DATAA& data) const
    {
        WIN32_FILE_ATTRIBUTE_DATA facts;
        if (name.size() >= sizeof data.cFileName || !factsOf(m_folder.get(), name, facts)) return false;
        data = {};
        std::memcpy(&data, &facts, sizeof facts);
        std::memcpy(data.cFileName, name.c_str(), name.size() + 1);
        return true;
    }

    Descriptor m_folder;
    std::vector<std::string> m_names;
    std::size_t m_next = 0;
};

// One star is retried at a time, so the steps are at most the product of the lengths.
bool matches(const char* pattern, const char* text)
{
    const char *star = nullptr, *from = nullptr;
    while (*text) {
        if (*pattern == '*') {
            star = pattern++;
            from = text;
        } else if (*pattern == '?' || *pattern == *text) {
            ++pattern;
            ++text;
        } else if (star) {
            pattern = star + 1;
            text = ++from;
        } else {
            return false;
        }
    }
    while (*pattern == '*') ++pattern;
    return *pattern == 0;
}

struct CloseListing {
    void operator()(DIR* listing) const { ::closedir(listing); }
};

std::vector<std::string> namesIn(int folder, const std::string& pattern)
{
    std::vector<std::string> names;
    const int fd = ::fcntl(folder, F_DUPFD_CLOEXEC, 0);
    const std::unique_ptr<DIR, CloseListing> listing(fd < 0 ? nullptr : ::fdopendir(fd));
    if (!listing && fd >= 0) ::close(fd);
    while (const dirent* entry = listing ? ::readdir(listing.get()) : nullptr)
        if (!std::strchr(entry->d_name, '\\') && matches(pattern.c_str(), entry->d_name))
            names.emplace_back(entry->d_name);
    std::ranges::sort(names);
    return names;
}
} // namespace

HANDLE FindFirstFileA(const char* name, WIN32_FIND_DATAA* data)
{
    if (!name || !*name || !data) return fail(ERROR_PATH_NOT_FOUND, INVALID_HANDLE_VALUE);
    const std::string path = nativePath(name);
    const std::size_t cut = path.find_last_of('/') + 1;
    const std::string folder = cut == 0 ? "." : path.substr(0, cut);
    std::string pattern = path.substr(cut);
    if (pattern.empty()) return fail(ERROR_FILE_NOT_FOUND, INVALID_HANDLE_VALUE);
    const bool isWild = pattern.find_first_of("*?") != std::string::npos;
    if (pattern == "*.*") pattern = "*";

    Descriptor open(::open(folder.c_str(), (isWild ? O_RDONLY : O_PATH) | O_DIRECTORY | O_CLOEXEC));
    if (!open)
        return fail(errno == ENOENT ? ERROR_PATH_NOT_FOUND : errorFromErrno(errno), INVALID_HANDLE_VALUE);
    auto names = isWild ? namesIn(open.get(), pattern) : std::vector<std::string>{pattern};
    auto search = std::make_unique<Search>(std::move(open), std::move(names));
    if (!search->Next(*data)) return fail(ERROR_FILE_NOT_FOUND, INVALID_HANDLE_VALUE);
    const HANDLE handle = openHandle(std::move(search));
    return handle ? handle : INVALID_HANDLE_VALUE;
}

BOOL FindNextFileA(HANDLE handle, WIN32_FIND_DATAA* data)
{
    const HandleUser<Search> search(handle);
    if (!search || !data) return fail(search ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE, FALSE);
    return search->Next(*data) ? TRUE : fail(ERROR_NO_MORE_FILES, FALSE);
}

BOOL FindClose(HANDLE handle)
{
    if (!HandleUser<Search>(handle)) return fail(ERROR_INVALID_HANDLE, FALSE);
    return CloseHandle(handle);
}
