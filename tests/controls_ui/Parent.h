// A window on the screen that holds controls and keeps what they notify it of.
#pragma once

#include "corekit/platform/Controls.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/Windows.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

class Parent {
public:
    Parent()
    {
        static const bool registered = [] {
            WNDCLASSA parentClass{};
            parentClass.lpszClassName = "Controls test";
            parentClass.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
                auto* const self = reinterpret_cast<Parent*>(GetWindowLongPtrA(window, GWLP_USERDATA));
                return self ? self->answer(message, wParam, lParam)
                            : DefWindowProcA(window, message, wParam, lParam);
            };
            return RegisterClassA(&parentClass) != 0;
        }();
        EXPECT_TRUE(registered);
        m_window = CreateWindowExA(0, "Controls test", "", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, nullptr,
                                   nullptr, nullptr, nullptr);
        SetWindowLongPtrA(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        ShowWindow(m_window, SW_SHOW);
    }
    ~Parent()
    {
        SetWindowLongPtrA(m_window, GWLP_USERDATA, 0);
        DestroyWindow(m_window);
        corekit::test::RunWaiting();
    }
    Parent(const Parent&) = delete;
    Parent& operator=(const Parent&) = delete;

    HWND window() const { return m_window; }
    HWND add(const char* className, const char* text, DWORD style, RECT place = {10, 10, 200, 120},
             int id = 7)
    {
        const HWND made =
            CreateWindowExA(0, className, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                            place.right - place.left, place.bottom - place.top, m_window,
                            reinterpret_cast<HMENU>(static_cast<LONG_PTR>(id)), nullptr, nullptr);
        EXPECT_NE(made, nullptr) << className;
        corekit::test::RunWaiting();
        notified.clear();
        return made;
    }

    // Codes of WM_COMMAND and WM_NOTIFY, in order.
    std::vector<int> notified;
    bool heard(UINT code) const
    {
        for (const int one : notified)
            if (one == static_cast<int>(code)) return true;
        return false;
    }
    // Sees every message first; an answer ends it.
    std::function<bool(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)> hook;

private:
    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_COMMAND) notified.push_back(HIWORD(wParam));
        if (message == WM_NOTIFY)
            notified.push_back(static_cast<int>(reinterpret_cast<NMHDR*>(lParam)->code));
        LRESULT result = 0;
        if (hook && hook(message, wParam, lParam, result)) return result;
        return DefWindowProcA(m_window, message, wParam, lParam);
    }

    HWND m_window = nullptr;
};

inline LRESULT send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return SendMessageA(window, message, wParam, lParam);
}
inline LRESULT send(HWND window, UINT message, WPARAM wParam, const void* what)
{
    return SendMessageA(window, message, wParam, reinterpret_cast<LPARAM>(what));
}
inline std::string textOf(HWND window)
{
    char text[512];
    return {text, static_cast<std::size_t>(GetWindowTextA(window, text, sizeof text))};
}
inline std::string rowText(HWND window, UINT message, int row)
{
    char text[512] = {};
    return send(window, message, static_cast<WPARAM>(row), text) < 0 ? "(none)" : text;
}
