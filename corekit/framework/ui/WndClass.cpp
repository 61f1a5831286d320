#include "corekit/framework/ui/Wnd.h"

#include <cstdio>
#include <set>
#include <string>

const char* AfxRegisterWndClass(UINT classStyle, HCURSOR cursor, HBRUSH background, HICON icon)
{
    static auto* const names = new std::set<std::string>; // names are kept for good
    char name[96];
    std::snprintf(name, sizeof name, "Afx:%x:%zx:%zx:%zx", classStyle, reinterpret_cast<std::size_t>(cursor),
                  reinterpret_cast<std::size_t>(background), reinterpret_cast<std::size_t>(icon));
    const char* const kept = names->insert(name).first->c_str();
    WNDCLASSA windowClass{};
    if (GetClassInfoA(nullptr, kept, &windowClass)) return kept;
    windowClass = {classStyle, &DefWindowProcA, 0, 0, nullptr, icon, cursor, background, nullptr, kept};
    return RegisterClassA(&windowClass) ? kept : nullptr;
}

BOOL AfxRegisterClass(WNDCLASSA* windowClass)
{
    WNDCLASSA present{};
    return GetClassInfoA(windowClass->hInstance, windowClass->lpszClassName, &present) ||
           RegisterClassA(windowClass);
}
