// The table behind every kind of handle.
//
// A handle is the number of a slot, of a kind, and of the turn in which that slot holds its object. Closing
// ends the turn and the next one counts on, so any value can be judged at a look and without touching foreign
// memory: one that has been closed, is of another kind or was never given out is known for what it is.
//
// Whoever uses an object counts as a user of its slot: what the slot holds stays until the handle is closed
// and the last user has left. Looking and using need no lock.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>

namespace corekit::detail {

enum class HandleKind : std::uint8_t {
    kernelObject, // Handles.h
    window,
    menu,
    accelerators,
    imageList,
    registryKey,
    gdiObject = 8 // and those behind it, one for each kind
};

using HandleNumber = std::uint64_t;
inline constexpr int slotBits = 18, kindBits = 4; // of a number; the rest counts turns
inline constexpr std::uint32_t mostSlots = 1u << slotBits;

// Kind and turn: what is right only as long as the handle is open.
constexpr std::uint64_t turnOf(HandleNumber number) { return number >> slotBits; }
constexpr HandleKind kindOf(HandleNumber number)
{
    return static_cast<HandleKind>(turnOf(number) & ((1u << kindBits) - 1));
}

// What a table needs to know of its slots. They derive from this, hold what they like and empty it in
// clear().
class Slot {
public:
    bool isOpenIn(std::uint64_t turn) const
    {
        return (m_state.load(std::memory_order_acquire) & ~usersMask) == (turn << turnShift | openBit);
    }
    // Becomes a user; false when the turn is over.
    bool enterIn(std::uint64_t turn)
    {
        std::uint64_t seen = m_state.load(std::memory_order_relaxed);
        while ((seen & ~usersMask) == (turn << turnShift | openBit))
            if (m_state.compare_exchange_weak(seen, seen + oneUser, std::memory_order_acquire,
                                              std::memory_order_relaxed))
                return true;
        return false;
    }
    // For those who are users, or hold the lock under which handles of the kind are closed.
    void addUser() { m_state.fetch_add(oneUser, std::memory_order_relaxed); }
    // Ends the turn for all but its users, of whom the caller is one; false when it is over already.
    bool close() { return (m_state.fetch_and(~openBit, std::memory_order_acq_rel) & openBit) != 0; }
    bool hasSeveralUsers() const { return (m_state.load(std::memory_order_acquire) & usersMask) > oneUser; }
    // The last one while it rests.
    std::uint64_t turn() const { return m_state.load(std::memory_order_relaxed) >> turnShift; }

private:
    template <class, std::uint32_t>
    friend class SlotTable;

    static constexpr std::uint64_t openBit = 1, oneUser = 2;
    static constexpr int turnShift = 24;
    static constexpr std::uint64_t usersMask = (std::uint64_t{1} << turnShift) - oneUser;

    // Whether the last user of a closed slot has left.
    bool dropUser()
    {
        return (m_state.fetch_sub(oneUser, std::memory_order_acq_rel) & (usersMask | openBit)) == oneUser;
    }
    std::uint64_t beginTurn(HandleKind kind)
    {
        const std::uint64_t next = ((turn() >> kindBits) + 1) << kindBits | static_cast<std::uint64_t>(kind);
        m_state.store(next << turnShift | openBit, std::memory_order_release);
        return next;
    }

    std::atomic<std::uint64_t> m_state{0}; // turn, users, whether it is open
    std::uint32_t m_next = 0;              // of those that rest
};

// Untouched slots cost no memory: a table is meant to lie in pages that the system supplies on first use, and
// is never torn down, since handles are closed by destructors of static objects, too.
template <class S, std::uint32_t count>
class SlotTable {
public:
    constexpr SlotTable() : m_slots{} {}
    ~SlotTable() {} // NOLINT: what the slots hold stays
    SlotTable(const SlotTable&) = delete;
    SlotTable& operator=(const SlotTable&) = delete;

    // A number for what `fill` puts into the slot; 0 when the table is full.
    template <class Fill>
    HandleNumber open(HandleKind kind, Fill fill)
    {
        S* const slot = take();
        if (slot == nullptr) return 0;
        fill(*slot);
        return slot->beginTurn(kind) << slotBits | numberOf(*slot);
    }
    // The slot that a number names, in whatever turn it is; null for none.
    S* at(HandleNumber number)
    {
        const HandleNumber place = number % mostSlots;
        if constexpr (count < mostSlots)
            if (place >= count) return nullptr;
        return &m_slots[place];
    }
    // The caller becomes a user; null for what is not open.
    S* enter(HandleNumber number)
    {
        S* const slot = at(number);
        return slot != nullptr && slot->enterIn(turnOf(number)) ? slot : nullptr;
    }
    void leave(S& slot)
    {
        if (!slot.dropUser()) return;
        slot.clear();
        giveBack(slot);
    }
    std::uint32_t numberOf(const S& slot) const { return static_cast<std::uint32_t>(&slot - m_slots.data()); }

private:
    static_assert(count <= mostSlots);
    static constexpr std::uint32_t rest = 64;

    // Untouched slots first while few rest, then those that have rested longest.
    S* take()
    {
        const std::lock_guard lock(m_lock);
        if (m_touched < count - 1 && (m_resting < rest || m_first == 0)) return &m_slots[++m_touched];
        if (m_first == 0) return nullptr;
        S& slot = m_slots[m_first];
        m_first = slot.m_next;
        --m_resting;
        return &slot;
    }
    void giveBack(S& slot)
    {
        const std::lock_guard lock(m_lock);
        slot.m_next = 0;
        (m_first == 0 ? m_first : m_slots[m_last].m_next) = numberOf(slot);
        m_last = numberOf(slot);
        ++m_resting;
    }

    std::mutex m_lock;
    // All begins as zeros, so that the file of the library holds none of it. Slot 0 is never used: 0 ends the
    // list.
    std::uint32_t m_touched = 0, m_first = 0, m_last = 0, m_resting = 0;
    union {
        std::array<S, count> m_slots;
    };
};

} // namespace corekit::detail
