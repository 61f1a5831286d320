// The posted messages of one thread, oldest first. Any thread may post; the rest belongs to the owner.
#pragma once

#include "corekit/platform/posix/user/WindowTable.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>

namespace corekit::detail {

struct MessageFilter {
    HWND window; // null: all
    UINT first, last;

    bool Passes(const MSG& message) const;
};

enum class QueueRead { look, take, wait };

class MessageQueue {
public:
    // False if it is full.
    bool Post(const MSG& message);
    // False if there is none, which cannot be for `wait`: that takes one as soon as it comes.
    bool Read(MSG& message, const MessageFilter& filter, QueueRead how);
    // Forgets what was posted to a window.
    void Drop(HWND window);

    // The owner's thread only; the loop is set once, before it does any work.
    void SetOuterLoop(const OuterLoop& loop);
    bool HasOuterLoop() const { return m_work != nullptr; }
    void WorkOutside(bool block) const { m_work(block); }

private:
    void (*m_work)(bool) = nullptr;
    std::atomic<void (*)()> m_wake = nullptr;
    std::mutex m_lock;
    std::condition_variable m_arrival;
    std::deque<MSG> m_messages;
};

} // namespace corekit::detail
