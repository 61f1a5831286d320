#include "corekit/platform/Profiles.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/Descriptor.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/posix/registry/ProfileText.h"
#include "corekit/platform/posix/registry/RegistryText.h"
#include "corekit/platform/ReplacedFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {
using namespace corekit;
using namespace corekit::detail;

// Nothing, with errno, if the file cannot be read.
std::optional<std::string> readFileText(const std::string& path)
{
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status;
    if (!file || fstat(file.get(), &status) != 0) return std::nullopt;
    if (!S_ISREG(status.st_mode)) {
        errno = EACCES;
        return std::nullopt;
    }
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t length = 0;
    while (length < text.size()) {
        const ssize_t count = read(file.get(), text.data() + length, text.size() - length);
        if (count < 0 && errno != EINTR) return std::nullopt;
        if (count == 0) break;
        if (count > 0) length += static_cast<std::size_t>(count);
    }
    text.resize(length);
    return text;
}

DWORD copyNames(std::string names, char* buffer, DWORD size)
{
    if (size < 2) {
        if (size == 1) buffer[0] = 0;
        return 0;
    }
    if (names.size() > size - 1) {
        names.resize(size - 2);
        names += '\0';
        std::memcpy(buffer, names.data(), names.size());
        buffer[size - 1] = 0;
        return size - 2;
    }
    std::memcpy(buffer, names.data(), names.size());
    buffer[names.size()] = 0;
    if (names.empty()) buffer[1] = 0;
    return static_cast<DWORD>(names.size());
}

DWORD copyText(std::string_view text, char* buffer, DWORD size)
{
    if (size == 0) return 0;
    const std::size_t length = text.copy(buffer, size - 1);
    buffer[length] = 0;
    return static_cast<DWORD>(length);
}

std::string_view withoutTrailingBlanks(std::string_view text)
{
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

bool isName(std::string_view name, char forbidden)
{
    return name.find_first_not_of(" \t") != std::string_view::npos &&
           name.find_first_of("\r\n") == std::string_view::npos &&
           findSign(name, forbidden) == std::string_view::npos;
}

DWORD checkChange(const char* section, const char* key, const char* value)
{
    if (!section || !isName(section, ']')) return ERROR_INVALID_PARAMETER;
    if (!key || !value) return NO_ERROR;
    const std::string_view name(key);
    const auto first = name.find_first_not_of(" \t");
    if (!isName(name, '=') || name[first] == '[' || name[first] == ';') return ERROR_INVALID_PARAMETER;
    return std::strpbrk(value, "\r\n") ? ERROR_INVALID_PARAMETER : NO_ERROR;
}

DWORD change(const std::string& path, const char* section, const char* key, const char* value)
{
    const FileTurn turn(path);
    std::optional<std::string> old = readFileText(path);
    if (!old && errno != ENOENT) return errorFromErrno(errno);
    if (!old && (!key || !value)) return NO_ERROR;
    if (old && access(path.c_str(), W_OK) != 0) return errorFromErrno(errno);
    ProfileText text(old ? *std::move(old) : std::string());
    if (text.Text().starts_with("\xFF\xFE") || text.Text().starts_with("\xFE\xFF"))
        return ERROR_NO_UNICODE_TRANSLATION;
    if (!key)
        text.DeleteSection(section);
    else if (!value)
        text.DeleteKey(section, key);
    else
        text.Set(section, key, value);
    if (!text.IsChanged()) return NO_ERROR;
    ReplacedFile file(path);
    return file && file.Write(text.Text()) && file.Commit() ? NO_ERROR : GetLastError();
}
} // namespace

DWORD GetPrivateProfileStringA(const char* section, const char* key, const char* fallback, char* buffer,
                               DWORD size, const char* file)
{
    if (!buffer || !file) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    std::string_view value;
    std::optional<std::string> text = readFileText(nativePath(file));
    const bool isThere = text.has_value();
    const ProfileText profile(std::move(text).value_or(std::string()));
    if (!section || !key) {
        if (!isThere) SetLastError(ERROR_FILE_NOT_FOUND);
        return copyNames(profile.Names(section, size), buffer, size);
    }
    value = profile.Find(section, key);
    if (!value.data()) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        value = withoutTrailingBlanks(fallback ? fallback : "");
    }
    return copyText(value, buffer, size);
}

BOOL WritePrivateProfileStringA(const char* section, const char* key, const char* value, const char* file)
{
    DWORD error = file ? checkChange(section, key, value) : ERROR_INVALID_PARAMETER;
    if (error == NO_ERROR) error = change(nativePath(file), section, key, value);
    if (error != NO_ERROR) SetLastError(error);
    return error == NO_ERROR;
}
