#include "corekit/platform/qt/windows/MessageLoop.h"

#include "corekit/platform/posix/user/WindowTable.h"
#include "corekit/platform/qt/windows/ApplicationFilter.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <utility>

namespace corekit::detail {
namespace {

const auto arrivalType = static_cast<QEvent::Type>(QEvent::registerEventType());

// One event is on its way for as long as messages wait.
constinit std::atomic<bool> isOnItsWay = false;
constinit std::atomic<QObject*> arrivals = nullptr;

// PeekMessageA and GetMessageA let the toolkit work, but keep messages for their caller; loops that run
// within do not.
constinit int heldAtLevel = -1;

int loopLevel() { return QThread::currentThread()->loopLevel(); }

void wake()
{
    QObject* const receiver = arrivals.load();
    if (receiver && !isOnItsWay.exchange(true))
        QCoreApplication::postEvent(receiver, new QEvent(arrivalType));
}

void work(bool block)
{
    const int outer = std::exchange(heldAtLevel, loopLevel());
    QCoreApplication::processEvents(block ? QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents
                                          : QEventLoop::AllEvents);
    heldAtLevel = outer;
    if (hasPosted()) wake();
}

// A loop of ours that is running.
struct RunningLoop {
    QEventLoop* loop;
    std::optional<int> exitCode;
    RunningLoop* outer;
};
constinit RunningLoop* innermost = nullptr;

void quit(int exitCode)
{
    if (!innermost) return QCoreApplication::exit(exitCode);
    innermost->exitCode = exitCode;
    innermost->loop->exit();
}

class Arrivals final : public QObject {
public:
    ~Arrivals() override { arrivals = nullptr; }

    bool event(QEvent* event) override
    {
        if (event->type() != arrivalType) return QObject::event(event);
        isOnItsWay = false;
        if (heldAtLevel == loopLevel()) return true;
        MSG message;
        for (int i = 0; i < mostInARow && takePosted(message); ++i) {
            if (hasPosted()) wake(); // a loop within this message delivers the rest
            if (message.message == WM_QUIT) {
                quit(static_cast<int>(message.wParam));
                break;
            }
            offerAndSend(message);
        }
        return true;
    }

private:
    static constexpr int mostInARow = 64; // then it is the toolkit's turn
};

} // namespace

void joinMessageLoops()
{
    auto* const receiver = new Arrivals;
    receiver->setParent(QCoreApplication::instance());
    arrivals = receiver;
    setOuterLoop({&wake, &work});
    if (hasPosted()) wake();
}

std::optional<int> runMessageLoop(const std::function<bool()>& goesOn, const std::function<bool(LONG)>& idle)
{
    startWindows();
    QEventLoop loop;
    RunningLoop running{&loop, {}, innermost};
    innermost = &running;
    const int held = std::exchange(heldAtLevel, -1);
    QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    LONG idleCount = 0;
    bool wantsIdle = true;
    QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &loop, [&] {
        idleCount = 0;
        wantsIdle = true;
    });
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &loop, [&] {
        if (innermost != &running) return;
        while (idle && wantsIdle && !running.exitCode && goesOn()) wantsIdle = idle(idleCount++);
        if (running.exitCode || !goesOn()) loop.exit();
    });
    if (hasPosted()) wake();
    if (goesOn()) loop.exec();
    heldAtLevel = held;
    innermost = running.outer;
    return running.exitCode;
}

void changeWaitCursor(int change)
{
    static constinit int depth = 0; // of this program's; the toolkit may have cursors of others in force
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return;
    const int former = std::exchange(depth, std::max(depth + change, 0));
    if (former == 0 && depth > 0) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    if (former > 0 && depth == 0) QGuiApplication::restoreOverrideCursor();
}

void runWaitingMessages()
{
    if (!QCoreApplication::instance()) return;
    const int held = std::exchange(heldAtLevel, -1);
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    heldAtLevel = held;
}

} // namespace corekit::detail
