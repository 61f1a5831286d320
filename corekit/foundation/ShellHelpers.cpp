#include "corekit/foundation/ShellHelpers.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Libraries.h"
#include "corekit/resources/Messages.h"

CString ShellGetSpecialFolder(int folder)
{
    char path[MAX_PATH];
    if (!SHGetSpecialFolderPathA(nullptr, path, folder, FALSE))
        ThrowChainedException(GetLastErrorException(), message::shellError);
    return path;
}

void scRegisterOleControl(const char* path)
{
    const HMODULE library = LoadLibraryA(path);
    const FARPROC entry = library ? GetProcAddress(library, "DllRegisterServer") : nullptr;
    const bool done = entry && reinterpret_cast<HRESULT (*)()>(reinterpret_cast<void*>(entry))() >= 0;
    if (library) FreeLibrary(library);
    if (!done) ThrowChainedException(nullptr, message::controlModuleInvalid, path);
}
