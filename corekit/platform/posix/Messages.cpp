#include "corekit/platform/Messages.h"

#include <memory>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <utility>

namespace {

struct Window {
    std::thread::id thread;
    std::shared_ptr<const MessageWindow::Procedure> procedure;
};

// All windows of the process. A number is never used again, so that a message to a closed window is known
// for what it is.
class WindowTable {
public:
    HWND Open(Window window)
    {
        const std::lock_guard lock(m_lock);
        const auto handle = reinterpret_cast<HWND>(++m_last);
        m_windows.emplace(handle, std::move(window));
        return handle;
    }
    void Close(HWND handle)
    {
        const std::lock_guard lock(m_lock);
        m_windows.erase(handle);
    }
    // The procedure of a window of this thread, else null.
    std::shared_ptr<const MessageWindow::Procedure> Find(HWND handle)
    {
        const std::lock_guard lock(m_lock);
        const auto found = m_windows.find(handle);
        if (found == m_windows.end() || found->second.thread != std::this_thread::get_id()) return nullptr;
        return found->second.procedure;
    }

private:
    std::mutex m_lock;
    std::unordered_map<HWND, Window> m_windows;
    UINT_PTR m_last = 0;
};

// Lives to the end of the process: a window may be closed by a static object's destructor.
WindowTable& Windows()
{
    static auto* const table = new WindowTable;
    return *table;
}

} // namespace

LRESULT DispatchMessageA(const MSG* message)
{
    if (!message) return 0;
    const auto procedure = Windows().Find(message->hwnd);
    return procedure ? (*procedure)(*message) : 0;
}

MessageWindow::MessageWindow(Procedure procedure)
    : m_window(Windows().Open(
          {std::this_thread::get_id(), std::make_shared<const Procedure>(std::move(procedure))}))
{
}

MessageWindow::~MessageWindow() { Windows().Close(m_window); }
