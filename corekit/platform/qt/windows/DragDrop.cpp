#include "corekit/platform/DragDrop.h"

#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Memory.h"
#include "corekit/platform/posix/user/RegisteredNames.h"
#include "corekit/platform/qt/windows/DropEvents.h"
#include "corekit/platform/qt/windows/MediaData.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <cstring>
#include <memory>
#include <set>

namespace corekit::detail {
namespace {

struct DroppedFiles {
    std::vector<std::string> names;
    POINT point{};
    bool isInClient = false;
};
std::set<DroppedFiles*>& dropsOut() // given to windows and not finished
{
    static auto* const out = new std::set<DroppedFiles*>;
    return *out;
}

struct Registered {
    DropTarget* target;
    DWORD effect; // what it answered last
};
std::unordered_map<HWND, Registered>& targets()
{
    static auto* const all = new std::unordered_map<HWND, Registered>;
    return *all;
}

std::vector<std::string> filesIn(const QMimeData& data)
{
    std::vector<std::string> names;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile()) names.push_back(url.toLocalFile().toStdString());
    return names;
}

DroppedFiles* giveOut(std::vector<std::string> names)
{
    auto files = std::make_unique<DroppedFiles>();
    files->names = std::move(names);
    dropsOut().insert(files.get());
    return files.release();
}

class Dragged final : public DraggedData {
public:
    explicit Dragged(const QMimeData& data) : m_data(data) {}
    bool hasFormat(UINT format) const override
    {
        return format == CF_HDROP ? !filesIn(m_data).empty() : mediaHas(m_data, format);
    }
    HGLOBAL get(UINT format) const override
    {
        if (format != CF_HDROP) return blockOfMedia(m_data, format);
        return hasFormat(format) ? reinterpret_cast<HGLOBAL>(giveOut(filesIn(m_data))) : nullptr;
    }

private:
    const QMimeData& m_data;
};

Qt::DropAction actionOf(DWORD effect)
{
    if (effect & DROPEFFECT_MOVE) return Qt::MoveAction;
    if (effect & DROPEFFECT_LINK) return Qt::LinkAction;
    return effect & DROPEFFECT_COPY ? Qt::CopyAction : Qt::IgnoreAction;
}

DWORD effectOf(Qt::DropAction action)
{
    return action == Qt::MoveAction   ? DROPEFFECT_MOVE
           : action == Qt::LinkAction ? DROPEFFECT_LINK
           : action == Qt::CopyAction ? DROPEFFECT_COPY
                                      : DROPEFFECT_NONE;
}

DWORD keysOf(const QDropEvent& event)
{
    DWORD keys = event.buttons() & Qt::RightButton ? MK_RBUTTON : MK_LBUTTON;
    if (event.modifiers() & Qt::ShiftModifier) keys |= MK_SHIFT;
    if (event.modifiers() & Qt::ControlModifier) keys |= MK_CONTROL;
    return keys;
}

bool takesFiles(const Window& window, const QMimeData& data)
{
    return window.exStyle() & WS_EX_ACCEPTFILES && !filesIn(data).empty();
}

void answer(QDropEvent& event, DWORD effect)
{
    event.setDropAction(actionOf(effect));
    event.setAccepted(actionOf(effect) != Qt::IgnoreAction);
}

void dropFiles(Window& window, const QMimeData& data, POINT point)
{
    RECT client{};
    GetClientRect(window.handle(), &client);
    DroppedFiles* const given = giveOut(filesIn(data));
    given->point = point;
    given->isInClient = point.x >= 0 && point.y >= 0 && point.x < client.right && point.y < client.bottom;
    SendMessageA(window.handle(), WM_DROPFILES, reinterpret_cast<WPARAM>(given), 0);
}

} // namespace

namespace {

// While the mouse rests the toolkit is silent; a target is told where it is again and again.
class Rest final : public QObject {
public:
    Rest()
    {
        m_timer.setInterval(interval);
        connect(&m_timer, &QTimer::timeout, this, &Rest::tell);
    }
    void at(HWND window, const QMimeData& data, DWORD keys, POINT point)
    {
        m_window = window;
        m_data = &data;
        m_keys = keys;
        m_point = point;
        m_timer.start();
    }
    void end() { m_timer.stop(); }

private:
    static constexpr int interval = 100; // milliseconds

    void tell()
    {
        const auto found = targets().find(m_window);
        if (!m_data || found == targets().end()) return end();
        const DWORD effect = found->second.target->over(m_window, Dragged(*m_data), m_keys, m_point);
        if (const auto still = targets().find(m_window); still != targets().end())
            still->second.effect = effect;
    }

    QTimer m_timer;
    HWND m_window = nullptr;
    QPointer<const QMimeData> m_data;
    DWORD m_keys = 0;
    POINT m_point{};
};
Rest& rest()
{
    static auto* const only = new Rest;
    return *only;
}

// A movement is always accepted, or the toolkit would send no more of them; what cannot be dropped here has
// no action.
void moveOver(QDropEvent& event, HWND handle, const DraggedData& dragged, POINT point)
{
    DropTarget& target = *targets().at(handle).target;
    const DWORD effect = event.type() == QEvent::DragEnter
                             ? target.enter(handle, dragged, keysOf(event), point)
                             : target.over(handle, dragged, keysOf(event), point);
    if (const auto still = targets().find(handle); still != targets().end()) still->second.effect = effect;
    rest().at(handle, *event.mimeData(), keysOf(event), point);
    event.setDropAction(actionOf(effect));
    event.accept();
}

void letGoOver(QDropEvent& event, HWND handle, const DraggedData& dragged, POINT point)
{
    rest().end();
    const auto [target, effect] = targets().at(handle);
    if (actionOf(effect) != Qt::IgnoreAction)
        return answer(event, target->drop(handle, dragged, effectOf(actionOf(effect)), point));
    target->leave(handle);
    answer(event, DROPEFFECT_NONE);
}

} // namespace

bool dropEvent(Window& window, QWidget& receiver, QEvent* raw)
{
    const HWND handle = window.handle();
    const auto found = targets().find(handle);
    const bool hasTarget = found != targets().end();
    if (raw->type() == QEvent::DragLeave) {
        rest().end();
        if (hasTarget) found->second.target->leave(handle);
        return hasTarget;
    }
    auto& event = static_cast<QDropEvent&>(*raw);
    const QMimeData* const data = event.mimeData();
    if (!data || (!hasTarget && !takesFiles(window, *data))) return false;
    if (!window.isEnabled()) return event.ignore(), true;
    const POINT point = window.toClient(receiver.mapTo(window.widget(), event.position().toPoint()));
    if (!hasTarget) {
        answer(event, DROPEFFECT_COPY);
        if (raw->type() == QEvent::Drop) dropFiles(window, *data, point);
        return true;
    }
    const Dragged dragged(*data);
    raw->type() == QEvent::Drop ? letGoOver(event, handle, dragged, point)
                                : moveOver(event, handle, dragged, point);
    return true;
}

void forgetDrops(HWND window) { targets().erase(window); }

bool setDropTarget(HWND handle, DropTarget* target)
{
    const Window* const window = requireWindow(handle);
    if (!window || !window->widget()) return false;
    if (!target) {
        targets().erase(handle);
        window->widget()->setAcceptDrops(window->exStyle() & WS_EX_ACCEPTFILES);
        return true;
    }
    targets()[handle] = {target, DROPEFFECT_NONE};
    window->widget()->setAcceptDrops(true);
    return true;
}

} // namespace corekit::detail

using namespace corekit::detail;

namespace {
const DroppedFiles* filesOf(HDROP drop)
{
    auto* const files = reinterpret_cast<DroppedFiles*>(drop);
    return onToolkitThread() && dropsOut().contains(files) ? files : nullptr;
}
} // namespace

void DragAcceptFiles(HWND handle, BOOL accept)
{
    const Window* const window = requireWindow(handle);
    if (!window) return;
    const DWORD style =
        accept ? window->exStyle() | WS_EX_ACCEPTFILES : window->exStyle() & ~WS_EX_ACCEPTFILES;
    SetWindowLongA(handle, GWL_EXSTYLE, static_cast<LONG>(style));
}

UINT DragQueryFileA(HDROP drop, UINT index, char* buffer, UINT size)
{
    const DroppedFiles* const files = filesOf(drop);
    if (!files) return 0;
    if (index == 0xFFFFFFFF) return static_cast<UINT>(files->names.size());
    if (index >= files->names.size()) return 0;
    const std::string& name = files->names[index];
    if (!buffer || size == 0) return static_cast<UINT>(name.size());
    const std::size_t length = std::min<std::size_t>(name.size(), size - 1);
    std::memcpy(buffer, name.data(), length);
    buffer[length] = 0;
    return static_cast<UINT>(length);
}

BOOL DragQueryPoint(HDROP drop, POINT* point)
{
    const DroppedFiles* const files = filesOf(drop);
    if (!files || !point) return FALSE;
    *point = files->point;
    return files->isInClient;
}

void DragFinish(HDROP drop)
{
    auto* const files = reinterpret_cast<DroppedFiles*>(drop);
    if (onToolkitThread() && dropsOut().erase(files)) delete files;
}
