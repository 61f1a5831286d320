#include "corekit/platform/MessageBoxes.h"

#include "corekit/platform/qt/dialogs/OwnerHeld.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/Window.h"
#include "corekit/platform/Toolkit.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QThread>

#include <array>
#include <span>

using namespace corekit::detail;

namespace {

constexpr qsizetype longestText = 16384;

// The buttons of each type, in their order, with the answers that they stand for.
struct Choice {
    QMessageBox::StandardButton button;
    int answer;
};
constexpr Choice okOnly[] = {{QMessageBox::Ok, 1}};
constexpr Choice okCancel[] = {{QMessageBox::Ok, 1}, {QMessageBox::Cancel, 2}};
constexpr Choice abortRetryIgnore[] = {
    {QMessageBox::Abort, 3}, {QMessageBox::Retry, 4}, {QMessageBox::Ignore, 5}};
constexpr Choice yesNoCancel[] = {{QMessageBox::Yes, 6}, {QMessageBox::No, 7}, {QMessageBox::Cancel, 2}};
constexpr Choice yesNo[] = {{QMessageBox::Yes, 6}, {QMessageBox::No, 7}};
constexpr Choice retryCancel[] = {{QMessageBox::Retry, 4}, {QMessageBox::Cancel, 2}};
constexpr std::array<std::span<const Choice>, 6> choicesOfType = {okOnly,      okCancel, abortRetryIgnore,
                                                                  yesNoCancel, yesNo,    retryCancel};

QMessageBox::Icon iconOf(UINT type)
{
    switch (type & 0xF0) {
    case 0x10:
        return QMessageBox::Critical;
    case 0x20:
        return QMessageBox::Question;
    case 0x30:
        return QMessageBox::Warning;
    case 0x40:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

// Escape gives Cancel, or the only button; else what the toolkit takes for a refusal.
int ask(QMessageBox& box, UINT type)
{
    const UINT kind = type & 0xF;
    const std::span<const Choice> choices = choicesOfType[kind < choicesOfType.size() ? kind : 0];
    const std::size_t preferred = (type & 0xF00) >> 8;
    for (std::size_t k = 0; k < choices.size(); ++k) {
        QPushButton* const button = box.addButton(choices[k].button);
        if (k == (preferred < choices.size() ? preferred : 0)) box.setDefaultButton(button);
    }
    const int pressed = box.exec();
    for (const Choice& choice : choices)
        if (choice.button == pressed) return choice.answer;
    return choices.back().answer;
}

} // namespace

int MessageBoxA(HWND owner, const char* text, const char* caption, UINT type)
{
    if (!onToolkitThread() || !ToolkitHasDisplay()) return 0;
    const Window* const over = Window::find(GetAncestor(owner, GA_ROOT));
    QMessageBox box(over ? over->widget() : nullptr);
    box.setIcon(iconOf(type));
    box.setTextFormat(Qt::PlainText);
    QString shown = fromNarrow(text ? text : "");
    if (shown.size() > longestText) shown = shown.first(longestText) + QChar(0x2026);
    box.setText(shown);
    box.setWindowTitle(caption ? fromNarrow(caption) : QCoreApplication::applicationName());
    box.setWindowModality(over ? Qt::WindowModal : Qt::ApplicationModal);
    const OwnerHeld held(owner);
    return ask(box, type);
}

bool corekit::detail::callOnToolkitThread(const std::function<void()>& work)
{
    QCoreApplication* const application = QCoreApplication::instance();
    if (!application) return false;
    if (application->thread() == QThread::currentThread())
        work();
    else
        QMetaObject::invokeMethod(application, work, Qt::BlockingQueuedConnection);
    return true;
}
