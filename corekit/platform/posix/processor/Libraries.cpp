#include "corekit/platform/Libraries.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/posix/sockets/SocketFunctions.h"
#include "corekit/platform/Runtime.h"

#include <algorithm>
#include <cstring>
#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

namespace {
using namespace corekit::detail;

// One use of a loaded library by the linker's own handle.
class Use {
public:
    explicit Use(void* handle) : m_handle(handle) {}
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    ~Use()
    {
        if (m_handle) ::dlclose(m_handle);
    }
    void* get() const { return m_handle; }

private:
    void* m_handle;
};

std::string programFile()
{
    char name[4096];
    const auto length = ::readlink("/proc/self/exe", name, sizeof name);
    return {name, static_cast<std::size_t>(std::max<decltype(length)>(length, 0))};
}

// The file of the module as the linker knows it: empty for an address in no module and for the program, which
// the linker opens without a name.
const char* linkerName(HMODULE module)
{
    Dl_info info;
    link_map* map = nullptr;
    if (!::dladdr1(module, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) || !map) return nullptr;
    return map->l_name;
}

void* opened(HMODULE module)
{
    const char* name = module ? linkerName(module) : "";
    if (!name) return nullptr;
    return ::dlopen(*name ? name : nullptr, RTLD_LAZY | RTLD_NOLOAD);
}

// The module that this library has built in; its address lies in this library.
HMODULE socketModule()
{
    static const char inside = 0;
    return reinterpret_cast<HMODULE>(const_cast<char*>(&inside));
}
} // namespace

HMODULE LoadLibraryA(const char* name)
{
    if (!name || !*name) return fail<HMODULE>(ERROR_MOD_NOT_FOUND, nullptr);
    if (_stricmp(name, socketLibrary.data()) == 0) return socketModule();
    void* const handle = ::dlopen(nativePath(name).c_str(), RTLD_LAZY | RTLD_LOCAL);
    link_map* map = nullptr;
    Dl_info info;
    if (!handle || ::dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0 || !::dladdr(map->l_ld, &info)) {
        if (handle) ::dlclose(handle);
        return fail<HMODULE>(ERROR_MOD_NOT_FOUND, nullptr);
    }
    return static_cast<HMODULE>(info.dli_fbase);
}

BOOL FreeLibrary(HMODULE module)
{
    if (module == socketModule()) return TRUE;
    const Use use(module ? opened(module) : nullptr);
    if (!use.get()) return fail(ERROR_MOD_NOT_FOUND, FALSE);
    return ::dlclose(use.get()) == 0;
}

FARPROC GetProcAddress(HMODULE module, const char* name)
{
    if (name && module == socketModule())
        if (const FARPROC function = socketFunction(name)) return function;
    const Use use(name ? opened(module) : nullptr);
    void* const address = use.get() ? ::dlsym(use.get(), name) : nullptr;
    if (!address) return fail<FARPROC>(ERROR_PROC_NOT_FOUND, nullptr);
    return reinterpret_cast<FARPROC>(address);
}

DWORD GetModuleFileNameA(HMODULE module, char* buffer, DWORD size)
{
    const char* known = module ? linkerName(module) : "";
    if (!known || !buffer || size == 0)
        return fail<DWORD>(known ? ERROR_INSUFFICIENT_BUFFER : ERROR_MOD_NOT_FOUND, 0);
    const std::string name = *known ? known : programFile();
    const std::size_t count = std::min<std::size_t>(name.size(), size - 1);
    std::memcpy(buffer, name.data(), count);
    buffer[count] = 0;
    return count == name.size() ? static_cast<DWORD>(count) : fail(ERROR_INSUFFICIENT_BUFFER, size);
}
