#include "corekit/platform/AccessibleText.h"

#include "corekit/platform/qt/windows/AccessibleName.h"
#include "corekit/platform/Windows.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>

#include <algorithm>
#include <unordered_map>

namespace corekit::detail {
namespace {

std::unordered_map<const QObject*, AccessibleText*>& texts()
{
    static auto* const all = new std::unordered_map<const QObject*, AccessibleText*>;
    return *all;
}

class TextInterface final : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit TextInterface(QWidget* widget)
        : QAccessibleWidget(widget, QAccessible::EditableText), m_told(whole())
    {
    }

    // What has changed since this was called last.
    void tell();

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text what) const override
    {
        return what == QAccessible::Value ? whole() : QAccessibleWidget::text(what);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = state.multiLine = state.selectableText = true;
        return state;
    }

    void selection(int index, int* from, int* to) const override
    {
        *from = *to = 0;
        if (AccessibleText* const its = index == 0 ? shown() : nullptr) its->selection(*from, *to);
    }
    int selectionCount() const override
    {
        int from = 0, to = 0;
        selection(0, &from, &to);
        return from != to;
    }
    void addSelection(int from, int to) override { setSelection(0, from, to); }
    void removeSelection(int) override { setCursorPosition(cursorPosition()); }
    void setSelection(int, int from, int to) override
    {
        const int end = characterCount();
        if (AccessibleText* const its = shown())
            its->select(std::clamp(from, 0, end), std::clamp(to, 0, end));
    }
    int cursorPosition() const override
    {
        AccessibleText* const its = shown();
        return its ? its->cursor() : 0;
    }
    void setCursorPosition(int position) override { setSelection(0, position, position); }
    QString text(int from, int to) const override { return whole().mid(from, to - from); }
    int characterCount() const override { return static_cast<int>(whole().size()); }
    QRect characterRect(int) const override { return rect(); } // where exactly is not known here
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int from, int) override { setCursorPosition(from); }
    QString attributes(int, int* from, int* to) const override
    {
        *from = 0;
        *to = characterCount();
        return {};
    }

private:
    AccessibleText* shown() const
    {
        const auto found = texts().find(object());
        return found == texts().end() ? nullptr : found->second;
    }
    QString whole() const
    {
        AccessibleText* const its = shown();
        return its ? QString::fromStdU16String(its->text()) : QString();
    }

    QString m_told;
};

void TextInterface::tell()
{
    const QString now = whole();
    if (now != m_told) {
        const auto shorter = std::min(now.size(), m_told.size());
        const auto same =
            std::mismatch(now.begin(), now.begin() + shorter, m_told.begin()).first - now.begin();
        qsizetype alike = 0;
        while (alike < shorter - same && now[now.size() - 1 - alike] == m_told[m_told.size() - 1 - alike])
            ++alike;
        QAccessibleTextUpdateEvent changed(object(), static_cast<int>(same),
                                           m_told.mid(same, m_told.size() - alike - same),
                                           now.mid(same, now.size() - alike - same));
        m_told = now;
        QAccessible::updateAccessibility(&changed);
    }
    int from = 0, to = 0;
    selection(0, &from, &to);
    QAccessibleTextSelectionEvent selected(object(), from, to);
    selected.setCursorPosition(cursorPosition());
    QAccessible::updateAccessibility(&selected);
    QAccessibleTextCursorEvent moved(object(), cursorPosition());
    QAccessible::updateAccessibility(&moved);
}

QAccessibleInterface* make(const QString&, QObject* object)
{
    return object && texts().contains(object) ? new TextInterface(static_cast<QWidget*>(object)) : nullptr;
}

} // namespace

void takeNameFrom(HWND before, QWidget& control)
{
    const Window* const window = before ? Window::find(before) : nullptr;
    auto* const label = window ? dynamic_cast<QLabel*>(window->widget()) : nullptr;
    if (!label) return;
    label->setBuddy(&control);
    if (!label->text().isEmpty()) control.setAccessibleName(label->text()); // views do not ask for a buddy
}

void setAccessibleText(HWND handle, AccessibleText* text)
{
    const Window* const window = Window::find(handle);
    if (!window || !window->widget()) return;
    QWidget& widget = *window->widget();
    if (!text) {
        texts().erase(&widget);
        return;
    }
    static const bool isInstalled = (QAccessible::installFactory(make), true);
    static_cast<void>(isInstalled);
    if (texts().insert_or_assign(&widget, text).second)
        QObject::connect(&widget, &QObject::destroyed, [](const QObject* gone) { texts().erase(gone); });
    takeNameFrom(GetWindow(handle, GW_HWNDPREV), widget);
}

void tellAccessibleText(HWND handle)
{
    if (!QAccessible::isActive()) return;
    const Window* const window = Window::find(handle);
    if (!window || !window->widget() || !texts().contains(window->widget())) return;
    if (auto* const described =
            dynamic_cast<TextInterface*>(QAccessible::queryAccessibleInterface(window->widget())))
        described->tell();
}

} // namespace corekit::detail
