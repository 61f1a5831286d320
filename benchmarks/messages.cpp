// Messages posted and dispatched against QCoreApplication::postEvent, a message box opened and closed against
// QMessageBox.
#include "corekit/platform/Messages.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/MessageBoxes.h"
#include "corekit/platform/Toolkit.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <cstdlib>

namespace {

constexpr int batch = 1000;
constexpr const char* question = "Save the changes to this story?";

class Posted final : public QEvent {
public:
    explicit Posted(int number) : QEvent(User), m_number(number) {}
    const int m_number;
};

class Receiver final : public QObject {
public:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User) return QObject::event(event);
        sum += static_cast<Posted*>(event)->m_number;
        return true;
    }
    long sum = 0;
};

void check(benchmark::State& state, long sum)
{
    if (sum != state.iterations() * (batch * (batch - 1) / 2)) state.SkipWithError("messages are missing");
    state.SetItemsProcessed(state.iterations() * batch);
}

// The window that a program has, with which its messages join the toolkit's.
class Program : public CWnd {
public:
    Program()
    {
        CreateEx(0, AfxRegisterWndClass(0), "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                 nullptr);
    }
};

void postOurs(benchmark::State& state)
{
    long sum = 0;
    int count = 0;
    const Program program;
    const MessageWindow window([&](const MSG& message) -> LRESULT {
        if (message.message != WM_USER) return 0;
        sum += static_cast<long>(message.wParam);
        ++count;
        return 0;
    });
    for (auto _ : state) {
        for (int i = 0; i < batch; ++i)
            PostMessageA(window.GetSafeHwnd(), WM_USER, static_cast<WPARAM>(i), 0);
        for (count = 0; count < batch;) QCoreApplication::processEvents();
    }
    check(state, sum);
}

void postPeer(benchmark::State& state)
{
    Receiver receiver;
    for (auto _ : state) {
        for (int i = 0; i < batch; ++i) QCoreApplication::postEvent(&receiver, new Posted(i));
        QCoreApplication::processEvents();
    }
    check(state, receiver.sum);
}

int closed = 0;

void closeSoon()
{
    QTimer::singleShot(0, [] {
        if (QWidget* const box = QApplication::activeModalWidget()) closed += box->close();
    });
}

void boxOurs(benchmark::State& state)
{
    const Program owner;
    closed = 0;
    for (auto _ : state) {
        closeSoon();
        MessageBoxA(owner.m_hWnd, question, "Prompter", MB_YESNOCANCEL | MB_ICONQUESTION);
    }
    if (closed != state.iterations()) state.SkipWithError("the box did not show");
}

void boxPeer(benchmark::State& state)
{
    QWidget owner;
    owner.resize(400, 300);
    owner.show();
    closed = 0;
    for (auto _ : state) {
        closeSoon();
        QMessageBox box(QMessageBox::Question, "Prompter", question,
                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, &owner);
        box.setWindowModality(Qt::WindowModal);
        box.exec();
    }
    if (closed != state.iterations()) state.SkipWithError("the box did not show");
}

} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1); // boxes wait although nobody sees them
    if (!StartToolkit()) return 1;
    benchmark::RegisterBenchmark("messages/post_and_dispatch/corekit", postOurs)->UseRealTime();
    benchmark::RegisterBenchmark("messages/post_and_dispatch/qt6_postevent", postPeer)->UseRealTime();
    benchmark::RegisterBenchmark("messages/message_box/corekit", boxOurs)->UseRealTime();
    benchmark::RegisterBenchmark("messages/message_box/qt6_qmessagebox", boxPeer)->UseRealTime();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
