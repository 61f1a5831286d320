// The table behind every handle.
//
// A handle is the address of a slot; a slot holds one object and counts its users. Slots are never given back
// to the system, so any value can be judged without touching foreign memory. An object lives until its handle
// is closed and its last user is gone.
#pragma once

#include "corekit/platform/Types.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

namespace corekit::detail {

enum class ObjectKind : std::uint8_t {
    file,
    fileMapping,
    event,
    eventSource,
    mutex,
    thread,
    search,
    socket,
    nameLookup,
    completionPort,
    serialPort,
    scsiPort,
    serviceManager,
    service,
    token
};

// A kernel object; each kind derives its operations from here and names itself in objectKind.
class Object {
public:
    explicit Object(ObjectKind kind) : m_kind(kind) {}
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    ObjectKind kind() const { return m_kind; }

    // The lock under which a handle to this kind is closed, for kinds that look at their objects under that
    // lock without counting as users; null for all others.
    virtual std::mutex* closingLock() { return nullptr; }

    // How many handles stand for the object; the last one that goes takes it along.
    void addHandle() { m_handles.fetch_add(1, std::memory_order_relaxed); }
    bool addHandleIfAny() // false once the last one is gone
    {
        std::uint32_t seen = m_handles.load(std::memory_order_relaxed);
        while (seen != 0 && !m_handles.compare_exchange_weak(seen, seen + 1, std::memory_order_relaxed)) {
        }
        return seen != 0;
    }
    bool dropHandle() { return m_handles.fetch_sub(1, std::memory_order_acq_rel) == 1; }

private:
    const ObjectKind m_kind;
    std::atomic<std::uint32_t> m_handles{1};
};

struct alignas(32) HandleSlot {
    static constexpr std::uint32_t openBit = 1; // the rest of `state` counts users by two

    std::atomic<std::uint32_t> state{0};
    std::uint32_t next = 0;
    Object* object = nullptr;
    // A copy of the object's, for those who look without being users: the object of another kind may go
    // meanwhile.
    std::atomic<ObjectKind> kind{};
    // How often the slot was opened: tells an open handle from an earlier one with the same value.
    std::atomic<std::uint32_t> turn{0};

    bool isOpen() const { return (state.load(std::memory_order_acquire) & openBit) != 0; }
    bool enter(); // becomes a user; false when closed
    void addUser()
    {
        state.fetch_add(2, std::memory_order_relaxed);
    }             // for those who are users or hold the lock
    void leave(); // the last one out of a closed slot frees the object
};

// A new handle that owns the object; null with error 4 when the table is full.
HANDLE openHandle(std::unique_ptr<Object> object);

// One handle more for an object that the caller uses through another; null with error 4 when the table is
// full.
HANDLE openAnother(Object& object);
// The same where the handle is counted already; on failure it is given back.
HANDLE openCounted(Object& object);

// The slot of a handle, open or not; null for a value that is none.
HandleSlot* slotOf(HANDLE handle);

// What a socket is known by. slotOf takes it as a handle while the slot holds a socket.
std::uint32_t slotNumber(HANDLE handle);

// Whether objects of this kind are T. A class that several kinds derive from says it for itself.
template <typename T>
constexpr bool isOfKind(ObjectKind kind)
{
    return kind == T::objectKind;
}

// A user of the object behind a handle, if it is a T.
template <typename T>
class HandleUser {
public:
    explicit HandleUser(HANDLE handle) : m_slot(slotOf(handle))
    {
        if (m_slot == nullptr || !m_slot->enter()) {
            m_slot = nullptr;
        } else if (isOfKind<T>(m_slot->object->kind())) {
            m_object = static_cast<T*>(m_slot->object);
        }
    }
    HandleUser(const HandleUser&) = delete;
    HandleUser& operator=(const HandleUser&) = delete;
    ~HandleUser()
    {
        if (m_slot != nullptr) m_slot->leave();
    }

    explicit operator bool() const { return m_object != nullptr; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }

private:
    HandleSlot* m_slot;
    T* m_object = nullptr;
};

} // namespace corekit::detail
