// The event of the toolkit that a message was made from, for as long as the message is in hand.
#pragma once

#include "corekit/platform/Types.h"

#include <QObject>
#include <QPointer>

class QEvent;

namespace corekit::detail {

class EventInHand {
public:
    // What is being asked of the window: a key press is delivered with the first of its characters.
    enum class Phase { only, keyBeforeCharacters, character };

    EventInHand(QEvent* event, QObject* receiver, HWND window, Phase phase = Phase::only);
    EventInHand(const EventInHand&) = delete;
    EventInHand& operator=(const EventInHand&) = delete;
    ~EventInHand();

    // Also for each further character, which a control that has had the event has had with it.
    void enter(Phase phase)
    {
        m_phase = phase;
        m_isTaken = false;
    }
    bool isDelivered() const { return m_delivered; }

    static const QEvent* event(); // null if no message of an event is in hand
    // Whether the innermost event is for that window, and was delivered now or will be with its characters.
    static bool deliverTo(HWND window);
    // Whether a character is the innermost event's own, and not what a keyboard of ours types for the key.
    static bool hasCharacters();
    // For the filter: whether the event is on its way from here to that object.
    static bool isPassing(const QObject* receiver, const QEvent* event);
    // Whether it is on its way from an object to its parents, which have had it.
    static bool isRising(const QObject* receiver, const QEvent* event);

private:
    QEvent* m_event;
    QPointer<QObject> m_receiver;
    HWND m_window;
    Phase m_phase;
    bool m_delivered = false, m_isTaken = false, m_passing = false;
    EventInHand* m_outer;
};

} // namespace corekit::detail
