// A window that keeps the messages that it gets, and may answer by a function.
#pragma once

#include "corekit/platform/InputTest.h"
#include "corekit/platform/Toolkit.h"
#include "corekit/platform/Windows.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace recorder {

using Answer = std::function<LRESULT(HWND, UINT, WPARAM, LPARAM)>;

struct Received {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};
inline std::vector<Received> received; // by all windows of the class
inline int living = 0;                 // windows of the class
inline std::map<UINT, Answer> answers; // by message; the default is up to them

inline LRESULT Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    living += (message == WM_NCCREATE) - (message == WM_NCDESTROY);
    received.push_back({window, message, wParam, lParam});
    if (const auto found = answers.find(message); found != answers.end()) {
        const Answer answer = found->second; // it may take itself away
        return answer(window, message, wParam, lParam);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

inline const char* const className = "Recorder";

inline HWND Make(DWORD style, RECT place, HWND parent = nullptr, int id = 0, DWORD exStyle = 0)
{
    WNDCLASSA windowClass{};
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = &Procedure;
    windowClass.cbWndExtra = 16;
    windowClass.lpszClassName = className;
    RegisterClassA(&windowClass);
    return CreateWindowExA(exStyle, className, "Recorder", style, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, parent,
                           reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr);
}

// How often a window got a message; null: any window.
inline int Count(UINT message, HWND window = nullptr)
{
    int count = 0;
    for (const Received& each : received)
        count += each.message == message && (!window || each.window == window);
    return count;
}

inline const Received* Last(UINT message)
{
    for (auto each = received.rbegin(); each != received.rend(); ++each)
        if (each->message == message) return &*each;
    return nullptr;
}

// The messages among those asked for, in their order.
inline std::vector<UINT> Order(HWND window, std::initializer_list<UINT> of)
{
    std::vector<UINT> order;
    for (const Received& each : received)
        for (const UINT message : of)
            if (each.window == window && each.message == message) order.push_back(message);
    return order;
}

} // namespace recorder
