#include "corekit/platform/ToolTips.h"

#include "corekit/platform/qt/controls/Make.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr UINT_PTR numberLimit = 0x10000; // texts below are numbers
constexpr int textRoom = 1024;

struct Tool {
    UINT flags = 0;
    HWND window = nullptr;
    UINT_PTR id = 0;
    RECT rect{};
    HINSTANCE instance = nullptr;
    LPARAM data = 0;
    QString text;
    bool asks = false;
};

// The window itself is never seen: the toolkit shows the tips, where it asks a tool for one.
class ToolTip final : public Control {
public:
    explicit ToolTip(QWidget* parent) : Control(new QWidget(parent, Qt::ToolTip)), m_watch(*this)
    {
        QCoreApplication::instance()->installEventFilter(&m_watch);
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    class Watch final : public QObject {
    public:
        explicit Watch(ToolTip& owner) : m_owner(owner) {}
        bool eventFilter(QObject* receiver, QEvent* event) override
        {
            if (event->type() != QEvent::ToolTip || !receiver->isWidgetType()) return false;
            return m_owner.asked(*static_cast<QWidget*>(receiver), static_cast<const QHelpEvent&>(*event));
        }

    private:
        ToolTip& m_owner;
    };

    bool asked(QWidget& receiver, const QHelpEvent& event);
    Tool* find(const TOOLINFOA* like);
    Tool* at(const Window& window, POINT client);
    LRESULT add(const TOOLINFOA* info);
    void take(Tool& tool, const TOOLINFOA& info) const;
    LRESULT describe(const Tool& tool, TOOLINFOA& info) const;
    QString textOf(const Tool& tool);
    bool show(const Tool& tool, QPoint onScreen, QWidget* over, const QRect& within);
    LRESULT tools(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT texts(UINT message, WPARAM wParam, LPARAM lParam);

    Watch m_watch;
    std::vector<Tool> m_tools;
    bool m_isActive = true;
    int m_stays = -1, m_widest = -1;
    QPoint m_tracked;
};

bool ToolTip::asked(QWidget& receiver, const QHelpEvent& event)
{
    const Window* const window = Window::of(&receiver);
    if (!window || !m_isActive || m_tools.empty()) return false;
    const QPoint inWindow = receiver.mapTo(window->widget(), event.pos());
    const Tool* const tool = at(*window, window->toClient(inWindow));
    if (!tool || tool->flags & TTF_TRACK) return false;
    const QRect within = tool->flags & TTF_IDISHWND
                             ? window->widget()->rect()
                             : toolkitRect(tool->rect).translated(window->client().topLeft());
    return show(*tool, event.globalPos(), window->widget(), within);
}

Tool* ToolTip::at(const Window& window, POINT point)
{
    for (Tool& tool : m_tools) {
        if (tool.flags & TTF_IDISHWND) {
            if (reinterpret_cast<HWND>(tool.id) == window.handle()) return &tool;
        } else if (tool.window == window.handle() && toolkitRect(tool.rect).contains(point.x, point.y))
            return &tool;
    }
    return nullptr;
}

// The text may come from a parent that changes the tools.
bool ToolTip::show(const Tool& shown, QPoint onScreen, QWidget* over, const QRect& within)
{
    const auto self = share(handle());
    const Tool tool = shown;
    const QPointer<QWidget> stillThere = over;
    QString text = textOf(tool);
    if (!isAlive() || text.isEmpty() || !stillThere) return false;
    if (!(style() & TTS_NOPREFIX)) text = withoutMnemonic(text);
    NMHDR header{handle(), tool.id, TTN_SHOW};
    SendMessageA(tool.window, WM_NOTIFY, tool.id, reinterpret_cast<LPARAM>(&header));
    if (!isAlive() || !stillThere) return false;
    // Plain text, whatever it looks like; wrapped only where a width is set.
    text = text.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>"));
    if (m_widest > 0)
        text = QStringLiteral("<table><tr><td width=%1>%2</td></tr></table>").arg(m_widest).arg(text);
    else
        text = QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text);
    QToolTip::showText(onScreen, text, over, within, m_stays);
    return true;
}

QString ToolTip::textOf(const Tool& tool)
{
    if (!tool.asks) return tool.text;
    NMTTDISPINFOA info{};
    info.hdr = {handle(), tool.id, TTN_GETDISPINFO};
    info.lpszText = info.szText;
    info.uFlags = tool.flags;
    info.lParam = tool.data;
    SendMessageA(tool.window, WM_NOTIFY, tool.id, reinterpret_cast<LPARAM>(&info));
    return reinterpret_cast<UINT_PTR>(info.lpszText) < numberLimit ? QString() : textFrom(info.lpszText);
}

Tool* ToolTip::find(const TOOLINFOA* like)
{
    const auto found = std::ranges::find_if(m_tools, [like](const Tool& tool) {
        return like && tool.window == like->hwnd && tool.id == like->uId;
    });
    return found == m_tools.end() ? nullptr : &*found;
}

void ToolTip::take(Tool& tool, const TOOLINFOA& info) const
{
    tool.flags = info.uFlags;
    tool.rect = info.rect;
    tool.instance = info.hinst;
    tool.data = info.lParam;
    tool.asks = info.lpszText == LPSTR_TEXTCALLBACK;
    const bool isText = !tool.asks && reinterpret_cast<UINT_PTR>(info.lpszText) >= numberLimit;
    tool.text = isText ? textFrom(info.lpszText) : QString();
}

LRESULT ToolTip::add(const TOOLINFOA* info)
{
    if (!info) return 0;
    Tool* tool = find(info);
    if (!tool) tool = &m_tools.emplace_back();
    tool->window = info->hwnd;
    tool->id = info->uId;
    take(*tool, *info);
    return 1;
}

LRESULT ToolTip::describe(const Tool& tool, TOOLINFOA& info) const
{
    info.uFlags = tool.flags;
    info.rect = tool.rect;
    info.hinst = tool.instance;
    info.lParam = tool.data;
    if (info.lpszText && info.lpszText != LPSTR_TEXTCALLBACK) copyText(tool.text, info.lpszText, textRoom);
    return 1;
}

LRESULT ToolTip::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case TTM_ACTIVATE:
        m_isActive = wParam != 0;
        if (!m_isActive) QToolTip::hideText();
        return 0;
    case TTM_SETDELAYTIME:
        if (wParam == TTDT_AUTOPOP) m_stays = static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(lParam)));
        return 0;
    case TTM_GETDELAYTIME:
        return wParam == TTDT_AUTOPOP ? m_stays : 0;
    case TTM_SETMAXTIPWIDTH:
        return std::exchange(m_widest, static_cast<int>(lParam));
    case TTM_GETMAXTIPWIDTH:
        return m_widest;
    case TTM_GETTOOLCOUNT:
        return static_cast<LRESULT>(m_tools.size());
    case TTM_POP:
        QToolTip::hideText();
        return 0;
    case TTM_RELAYEVENT:
        return 0;
    case TTM_TRACKPOSITION: {
        const POINT point = pointIn(lParam);
        m_tracked = {point.x, point.y};
        return 0;
    }
    default:
        return tools(message, wParam, lParam);
    }
}

LRESULT ToolTip::tools(UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const info = reinterpret_cast<TOOLINFOA*>(lParam);
    switch (message) {
    case TTM_ADDTOOLA:
        return add(info);
    case TTM_DELTOOLA:
        if (const Tool* const tool = find(info)) m_tools.erase(m_tools.begin() + (tool - m_tools.data()));
        return 0;
    case TTM_NEWTOOLRECTA:
        if (Tool* const tool = find(info)) tool->rect = info->rect;
        return 0;
    case TTM_GETTOOLINFOA: {
        const Tool* const tool = find(info);
        return tool ? describe(*tool, *info) : 0;
    }
    case TTM_SETTOOLINFOA:
        if (Tool* const tool = find(info)) take(*tool, *info);
        return 0;
    default:
        return texts(message, wParam, lParam);
    }
}

LRESULT ToolTip::texts(UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const info = reinterpret_cast<TOOLINFOA*>(lParam);
    switch (message) {
    case TTM_UPDATETIPTEXTA:
        if (Tool* const tool = find(info)) {
            TOOLINFOA changed = *info;
            changed.uFlags = tool->flags;
            changed.rect = tool->rect;
            changed.lParam = tool->data;
            take(*tool, changed);
        }
        return 0;
    case TTM_GETTEXTA: {
        const Tool* const tool = find(info);
        if (tool)
            copyText(textOf(*tool), info->lpszText, static_cast<int>(std::min<WPARAM>(wParam, textRoom)));
        return 0;
    }
    case TTM_TRACKACTIVATE: {
        const Tool* const tool = find(info);
        const Window* const over = tool ? Window::find(tool->window) : nullptr;
        if (!wParam)
            QToolTip::hideText();
        else if (over && over->widget())
            show(*tool, m_tracked, over->widget(), QRect());
        return 0;
    }
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

} // namespace

std::unique_ptr<Window> makeToolTip(const CREATESTRUCTA&, QWidget* parent)
{
    return std::make_unique<ToolTip>(parent);
}

} // namespace corekit::detail
