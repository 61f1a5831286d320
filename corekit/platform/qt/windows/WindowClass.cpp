#include "corekit/platform/qt/windows/WindowClass.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/windows/NeverDestroyed.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"

#include <algorithm>
#include <cstring>

namespace corekit::detail {
namespace {

using Classes = std::map<std::string, WindowClass>; // by the name in small letters

Classes& classes()
{
    static NeverDestroyed<Classes> all;
    return all.get();
}

std::string smallLetters(const char* name)
{
    std::string text = name;
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return text;
}

// Numbers below 0x10000 stand for registered names.
bool isAtom(const char* name) { return reinterpret_cast<UINT_PTR>(name) <= 0xFFFF; }

WindowClass* add(const char* name)
{
    static ATOM lastAtom = 0xBFFF;
    const auto [place, isNew] = classes().try_emplace(smallLetters(name));
    if (!isNew) return nullptr;
    place->second.name = name;
    place->second.atom = ++lastAtom;
    return &place->second;
}

} // namespace

WindowClass* findClass(const char* name)
{
    if (isAtom(name)) {
        const auto atom = static_cast<ATOM>(reinterpret_cast<UINT_PTR>(name));
        for (auto& [key, windowClass] : classes())
            if (atom && windowClass.atom == atom) return &windowClass;
        return nullptr;
    }
    const auto found = classes().find(smallLetters(name));
    return found == classes().end() ? nullptr : &found->second;
}

void registerControlClass(const char* className, MakeControl make)
{
    WindowClass* const made = add(className);
    if (!made) return;
    made->style = CS_DBLCLKS;
    made->procedure = &DefWindowProcA;
    made->make = make;
}

} // namespace corekit::detail

using namespace corekit::detail;

ATOM RegisterClassA(const WNDCLASSA* windowClass)
{
    if (!onToolkitThread()) return 0;
    if (!windowClass || !windowClass->lpfnWndProc || isAtom(windowClass->lpszClassName) ||
        windowClass->cbWndExtra < 0 || windowClass->cbWndExtra > 0x10000) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    WindowClass* const made = add(windowClass->lpszClassName);
    if (!made) {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    made->style = windowClass->style;
    made->procedure = windowClass->lpfnWndProc;
    made->extraBytes = windowClass->cbWndExtra;
    made->instance = windowClass->hInstance;
    made->icon = windowClass->hIcon;
    made->cursor = windowClass->hCursor;
    made->background = windowClass->hbrBackground;
    if (!isAtom(windowClass->lpszMenuName)) made->menuName = windowClass->lpszMenuName;
    return made->atom;
}

BOOL GetClassInfoA(HINSTANCE, const char* className, WNDCLASSA* out)
{
    if (!onToolkitThread()) return FALSE;
    const WindowClass* const found = findClass(className);
    if (!found || !out) {
        SetLastError(found ? ERROR_INVALID_PARAMETER : ERROR_CLASS_DOES_NOT_EXIST);
        return FALSE;
    }
    *out = {
        found->style,       found->procedure,  0,
        found->extraBytes,  found->instance,   found->icon,
        found->cursor,      found->background, found->menuName.empty() ? nullptr : found->menuName.c_str(),
        found->name.c_str()};
    return TRUE;
}

int GetClassNameA(HWND handle, char* buffer, int size)
{
    const Window* const window = requireWindow(handle);
    if (!window || !buffer || size < 1) return 0;
    const std::string& name = window->windowClass().name;
    const std::size_t length = std::min(name.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(buffer, name.data(), length);
    buffer[length] = 0;
    return static_cast<int>(length);
}
