// Kernel objects and their handles, several for one object if need be. It lives until its last handle is
// closed and the last user of each is gone.
#pragma once

#include "corekit/platform/posix/handles/SlotTable.h"
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

struct alignas(32) HandleSlot : Slot {
    bool isOpen(HANDLE handle) const { return isOpenIn(turnMeant(handle)); }
    bool enter(HANDLE handle) { return enterIn(turnMeant(handle)); } // becomes a user; false when closed
    void leave();                                                    // for users
    void clear();

    Object* object = nullptr;
    // A copy of the object's, for those who look without being users: the object of another kind may go
    // meanwhile.
    std::atomic<ObjectKind> kind{};

private:
    // A socket's number names no turn.
    std::uint64_t turnMeant(HANDLE handle) const
    {
        const auto number = reinterpret_cast<HandleNumber>(handle);
        return number < mostSlots ? turn() : turnOf(number);
    }
};

// A new handle that owns the object; null with error 4 when the table is full.
HANDLE openHandle(std::unique_ptr<Object> object);

// One handle more for an object that the caller uses through another; null with error 4 when the table is
// full.
HANDLE openAnother(Object& object);
// The same where the handle is counted already; on failure it is given back.
HANDLE openCounted(Object& object);

// The slot that a handle names, open or not; null for a value that names none.
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
        if (m_slot == nullptr || !m_slot->enter(handle)) {
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
