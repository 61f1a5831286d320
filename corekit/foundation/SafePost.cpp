#include "corekit/foundation/SafePost.h"

#include "corekit/foundation/SystemHelpers.h"
#include "corekit/platform/Waits.h"

void corekit::detail::postPatiently(const std::function<bool()>& post)
{
    constexpr int tries = 15;
    if (post()) return;
    for (int retry = 1; retry < tries; ++retry) {
        if (post()) {
            OutputDebugStringA(scFormatString("SafePostMessage() succeeded after %d retries.\n", retry));
            return;
        }
        Sleep(0);
    }
    OutputDebugStringA(scFormatString("SafePostMessage() failed after %d retries!\n", tries));
}

void SafePostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    corekit::detail::postPatiently([=] { return PostMessageA(window, message, wParam, lParam) != 0; });
}
