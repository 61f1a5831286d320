#include "corekit/platform/SystemNames.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/processor/Account.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {
std::string userName()
{
    std::string name = corekit::detail::currentAccount().name;
    return name.empty() ? std::to_string(geteuid()) : name;
}

bool copyOut(std::string_view text, char* buffer, DWORD size)
{
    if (!buffer || text.size() >= size) return false;
    buffer[text.copy(buffer, text.size())] = 0;
    return true;
}

BOOL copyName(std::string_view name, char* buffer, DWORD* size, DWORD counted)
{
    const bool copied = copyOut(name, buffer, *size);
    *size = static_cast<DWORD>(name.size()) + (copied ? counted : 1);
    if (!copied) SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return copied;
}
} // namespace

BOOL GetUserNameA(char* buffer, DWORD* size) { return copyName(userName(), buffer, size, 1); }

BOOL GetComputerNameA(char* buffer, DWORD* size)
{
    char host[256] = "";
    gethostname(host, sizeof host - 1);
    const std::string_view name(host);
    return copyName(name.substr(0, name.find('.')), buffer, size, 0);
}

DWORD GetEnvironmentVariableA(const char* name, char* buffer, DWORD size)
{
    const char* value = name ? std::getenv(name) : nullptr;
    if (!value) {
        SetLastError(ERROR_ENVVAR_NOT_FOUND);
        return 0;
    }
    const auto length = static_cast<DWORD>(std::strlen(value));
    return copyOut(value, buffer, size) ? length : length + 1;
}
