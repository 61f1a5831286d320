#include "corekit/platform/qt/controls/LineMenu.h"

#include "corekit/platform/qt/windows/ReadableMedia.h"

#include <QCoreApplication>
#include <QIcon>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

namespace corekit::detail {
namespace {

using Line = QLineEdit;

struct Entry {
    const char* text; // null: a line between groups
    const char* icon = nullptr;
    QKeySequence::StandardKey key = QKeySequence::UnknownKey;
    bool forReading = false; // also where the text cannot be changed
    bool (*isPossible)(const Line&) = nullptr;
    void (*act)(Line&) = nullptr; // null: paste
};

bool isCopyable(const Line& line) { return line.hasSelectedText() && line.echoMode() == QLineEdit::Normal; }

bool isPasteable(const Line&)
{
    const QMimeData* const media = readableMedia();
    return media && media->hasText();
}

bool isSelectable(const Line& line) { return line.selectedText().size() < line.text().size(); }

constexpr Entry entries[] = {
    {"&Undo", "edit-undo", QKeySequence::Undo, false, [](const Line& line) { return line.isUndoAvailable(); },
     [](Line& line) { line.undo(); }},
    {"&Redo", "edit-redo", QKeySequence::Redo, false, [](const Line& line) { return line.isRedoAvailable(); },
     [](Line& line) { line.redo(); }},
    {nullptr},
    {"Cu&t", "edit-cut", QKeySequence::Cut, false, isCopyable, [](Line& line) { line.cut(); }},
    {"&Copy", "edit-copy", QKeySequence::Copy, true, isCopyable, [](Line& line) { line.copy(); }},
    {"&Paste", "edit-paste", QKeySequence::Paste, false, isPasteable},
    {"Delete", "edit-delete", QKeySequence::UnknownKey, false,
     [](const Line& line) { return line.hasSelectedText(); }, [](Line& line) { line.del(); }},
    {nullptr, nullptr, QKeySequence::UnknownKey, true},
    {"Select All", "edit-select-all", QKeySequence::SelectAll, true, isSelectable,
     [](Line& line) { line.selectAll(); }},
};

QString labelOf(const Entry& entry)
{
    QString label = QLineEdit::tr(entry.text);
    if (entry.key == QKeySequence::UnknownKey ||
        QCoreApplication::testAttribute(Qt::AA_DontShowShortcutsInContextMenus))
        return label;
    return label + u'\t' + QKeySequence(entry.key).toString(QKeySequence::NativeText);
}

} // namespace

void showLineMenu(QLineEdit& line, QPoint onScreen, const std::function<void()>& paste)
{
    auto* const menu = new QMenu(&line);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Entry& entry : entries) {
        if (line.isReadOnly() && !entry.forReading) continue;
        if (!entry.text) {
            menu->addSeparator();
            continue;
        }
        const auto chosen = entry.act ? std::function([&line, act = entry.act] { act(line); }) : paste;
        QAction* const action =
            menu->addAction(QIcon::fromTheme(QLatin1String(entry.icon)), labelOf(entry), &line, chosen);
        action->setEnabled(entry.isPossible(line));
    }
    menu->popup(onScreen);
}

} // namespace corekit::detail
