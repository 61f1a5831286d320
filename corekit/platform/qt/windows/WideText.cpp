#include "corekit/platform/qt/windows/WideText.h"

#include "corekit/platform/Messages.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/Windows.h"

#include <utility>

namespace corekit::detail {
namespace {

// The innermost send; a narrow one from within it has another text or another window.
struct WideSend {
    HWND window;
    LPARAM text;
    const WideSend* outer;
};
constinit const WideSend* innermost = nullptr;

} // namespace

bool carriesWideText(HWND window, LPARAM text)
{
    for (const WideSend* send = innermost; send; send = send->outer)
        if (send->window == window && send->text == text) return true;
    return false;
}

} // namespace corekit::detail

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    using namespace corekit::detail;
    if (!onToolkitThread()) return SendMessageA(window, message, wParam, lParam);
    const WideSend send{window, lParam, innermost};
    innermost = &send;
    const LRESULT answer = SendMessageA(window, message, wParam, lParam);
    innermost = send.outer;
    return answer;
}
