// The classes that windows are made of, registered and built in.
#pragma once

#include "corekit/platform/qt/windows/Window.h"

namespace corekit::detail {

struct WindowClass {
    std::string name; // as it was registered
    UINT style = 0;
    WNDPROC procedure = nullptr;
    int extraBytes = 0;
    HINSTANCE instance = nullptr;
    HICON icon = nullptr;
    HCURSOR cursor = nullptr;
    HBRUSH background = nullptr;
    std::string menuName;
    MakeControl make = nullptr; // null: a bare window
    ATOM atom = 0;
};

// Without regard to case; null if there is none.
WindowClass* findClass(const char* name);

} // namespace corekit::detail
