#include "corekit/platform/Messages.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/user/MessageQueue.h"
#include "corekit/platform/posix/user/UserObjects.h"
#include "corekit/platform/posix/user/WindowTable.h"
#include "corekit/platform/SystemInfo.h"
#include "corekit/platform/Threads.h"
#include "corekit/platform/Windows.h"

#include <chrono>
#include <memory>
#include <thread>
#include <utility>

using namespace corekit::detail;

namespace {

struct Window {
    std::thread::id thread;
    DWORD threadNumber;
    std::shared_ptr<MessageQueue> queue; // of that thread
    corekit::WindowProcedure procedure;
    std::shared_ptr<void> behind;

    bool IsOfThisThread() const { return thread == std::this_thread::get_id(); }
};

using Windows = UserTable<HWND, const Window, HandleKind::window>;

const std::shared_ptr<MessageQueue>& thisThreadsQueue()
{
    thread_local const auto queue = std::make_shared<MessageQueue>();
    return queue;
}

DWORD millisecondsNow()
{
    using namespace std::chrono;
    return static_cast<DWORD>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

// Whether this thread may read messages of the window.
bool mayRead(HWND window)
{
    if (!window) return true;
    const auto found = Windows::Find(window);
    if (found && found->IsOfThisThread()) return true;
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return false;
}

} // namespace

LRESULT DispatchMessageA(const MSG* message)
{
    if (!message) return 0;
    const auto window = Windows::Find(message->hwnd);
    return window && window->IsOfThisThread() ? window->procedure(*message) : 0;
}

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto found = Windows::Find(window);
    if (found && found->IsOfThisThread())
        return found->procedure({window, message, wParam, lParam, 0, {0, 0}});
    SetLastError(found ? ERROR_ACCESS_DENIED : ERROR_INVALID_WINDOW_HANDLE);
    return 0;
}

BOOL IsWindow(HWND window) { return static_cast<bool>(Windows::Find(window)); }

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    std::shared_ptr<MessageQueue> queue;
    if (!window)
        queue = thisThreadsQueue();
    else if (const auto found = Windows::Find(window))
        queue = found->queue;
    if (!queue) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    if (queue->Post({window, message, wParam, lParam, millisecondsNow(), {0, 0}})) return TRUE;
    SetLastError(ERROR_NOT_ENOUGH_QUOTA);
    return FALSE;
}

BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove)
{
    if (!message) SetLastError(ERROR_INVALID_PARAMETER);
    if (!message || !mayRead(window)) return FALSE;
    const auto& queue = thisThreadsQueue();
    const QueueRead how = remove & PM_REMOVE ? QueueRead::take : QueueRead::look;
    if (queue->Read(*message, {window, first, last}, how)) return TRUE;
    if (!queue->HasOuterLoop()) return FALSE;
    queue->WorkOutside(false);
    return queue->Read(*message, {window, first, last}, how);
}

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last)
{
    if (!message) SetLastError(ERROR_INVALID_PARAMETER);
    if (!message || !mayRead(window)) return -1;
    const auto& queue = thisThreadsQueue();
    const MessageFilter filter{window, first, last};
    if (queue->HasOuterLoop()) {
        while (!queue->Read(*message, filter, QueueRead::take)) {
            queue->WorkOutside(true);
            if (!mayRead(window)) return -1;
        }
    } else {
        queue->Read(*message, filter, QueueRead::wait);
    }
    return message->message != WM_QUIT;
}

void PostQuitMessage(int exitCode) { PostMessageA(nullptr, WM_QUIT, static_cast<WPARAM>(exitCode), 0); }

MessageWindow::MessageWindow(Procedure procedure) : m_window(corekit::openWindow(std::move(procedure))) {}

MessageWindow::~MessageWindow() { corekit::closeWindow(m_window); }

namespace corekit {

HWND openWindow(WindowProcedure procedure, std::shared_ptr<void> behind)
{
    return Windows::Open(
        std::make_unique<const Window>(Window{std::this_thread::get_id(), GetCurrentThreadId(),
                                              thisThreadsQueue(), std::move(procedure), std::move(behind)}));
}

const std::shared_ptr<void>* windowBehind(HWND window)
{
    const auto found = Windows::Find(window);
    return found && found->IsOfThisThread() ? &found->behind : nullptr;
}

void closeWindow(HWND window)
{
    if (const auto closed = Windows::Close(window)) closed->queue->Drop(window);
}

void setOuterLoop(const OuterLoop& loop) { thisThreadsQueue()->SetOuterLoop(loop); }

bool takePosted(MSG& message) { return thisThreadsQueue()->Read(message, {nullptr, 0, 0}, QueueRead::take); }

bool hasPosted()
{
    MSG message;
    return thisThreadsQueue()->Read(message, {nullptr, 0, 0}, QueueRead::look);
}

} // namespace corekit
