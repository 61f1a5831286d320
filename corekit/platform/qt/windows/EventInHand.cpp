#include "corekit/platform/qt/windows/EventInHand.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

namespace corekit::detail {

namespace {
constinit EventInHand* innermost = nullptr; // toolkit's thread
}

EventInHand::EventInHand(QEvent* event, QObject* receiver, HWND window, Phase phase)
    : m_event(event), m_receiver(receiver), m_window(window), m_phase(phase), m_outer(innermost)
{
    innermost = this;
}

EventInHand::~EventInHand() { innermost = m_outer; }

const QEvent* EventInHand::event() { return innermost ? innermost->m_event : nullptr; }

bool EventInHand::deliverTo(HWND window)
{
    EventInHand* const in = innermost;
    if (!in || in->m_window != window || in->m_isTaken) return false;
    if (in->m_phase == Phase::keyBeforeCharacters) return true;
    in->m_isTaken = true;
    if (in->m_delivered) return true;
    in->m_delivered = in->m_passing = true;
    if (in->m_receiver) QCoreApplication::sendEvent(in->m_receiver, in->m_event);
    in->m_passing = false;
    return true;
}

bool EventInHand::hasCharacters() { return innermost && innermost->m_phase == Phase::character; }

bool EventInHand::isPassing(const QObject* receiver, const QEvent* event)
{
    return innermost && innermost->m_passing && innermost->m_receiver == receiver &&
           innermost->m_event->type() == event->type();
}

bool EventInHand::isRising(const QObject* receiver, const QEvent* event)
{
    if (!innermost || !innermost->m_passing || innermost->m_event->type() != event->type()) return false;
    for (const QObject* below = innermost->m_receiver; below; below = below->parent())
        if (below == receiver) return true;
    return false;
}

} // namespace corekit::detail
