#include "corekit/platform/Messages.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/user/MessageQueue.h"
#include "corekit/platform/posix/user/UserObjects.h"

#include <chrono>
#include <memory>
#include <thread>
#include <utility>

using namespace corekit::detail;

namespace {

struct Window {
    std::thread::id thread;
    std::shared_ptr<MessageQueue> queue; // of that thread
    MessageWindow::Procedure procedure;

    bool IsOfThisThread() const { return thread == std::this_thread::get_id(); }
};

using Windows = UserTable<HWND, const Window>;

const std::shared_ptr<MessageQueue>& ThisThreadsQueue()
{
    thread_local const auto queue = std::make_shared<MessageQueue>();
    return queue;
}

DWORD Milliseconds()
{
    using namespace std::chrono;
    return static_cast<DWORD>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

// Whether this thread may read messages of the window.
bool MayRead(HWND window)
{
    if (!window) return true;
    const auto found = Windows::Instance().Find(window);
    if (found && found->IsOfThisThread()) return true;
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return false;
}

} // namespace

LRESULT DispatchMessageA(const MSG* message)
{
    if (!message) return 0;
    const auto window = Windows::Instance().Find(message->hwnd);
    return window && window->IsOfThisThread() ? window->procedure(*message) : 0;
}

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    std::shared_ptr<MessageQueue> queue;
    if (!window)
        queue = ThisThreadsQueue();
    else if (const auto found = Windows::Instance().Find(window))
        queue = found->queue;
    if (!queue) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    if (queue->Post({window, message, wParam, lParam, Milliseconds(), {0, 0}})) return TRUE;
    SetLastError(ERROR_NOT_ENOUGH_QUOTA);
    return FALSE;
}

BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove)
{
    if (!message) SetLastError(ERROR_INVALID_PARAMETER);
    if (!message || !MayRead(window)) return FALSE;
    return ThisThreadsQueue()->Read(*message, {window, first, last},
                                    remove & PM_REMOVE ? QueueRead::take : QueueRead::look);
}

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last)
{
    if (!message) SetLastError(ERROR_INVALID_PARAMETER);
    if (!message || !MayRead(window)) return -1;
    ThisThreadsQueue()->Read(*message, {window, first, last}, QueueRead::wait);
    return message->message != WM_QUIT;
}

MessageWindow::MessageWindow(Procedure procedure)
    : m_window(Windows::Instance().Open(std::make_shared<const Window>(
          Window{std::this_thread::get_id(), ThisThreadsQueue(), std::move(procedure)})))
{
}

MessageWindow::~MessageWindow()
{
    if (const auto closed = Windows::Instance().Close(m_window)) closed->queue->Drop(m_window);
}
