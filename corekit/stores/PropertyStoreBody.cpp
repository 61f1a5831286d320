#include "corekit/stores/PropertyStoreBody.h"

#include "corekit/foundation/TextConversion.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace corekit::detail {

namespace {

constexpr DWORD emptyForm = 12; // the size of a form without elements

// Takes apart bytes that were checked before.
class FormParser {
public:
    explicit FormParser(const PackedForm& form) : m_form(form), m_at(form.get()) { Get<DWORD>(); }

    void AppendStores(NamedList& stores)
    {
        auto left = Get<DWORD>();
        for (stores.Reserve(left); left > 0; --left) Append(stores, Store());
    }

    void AppendValues(NamedList& values)
    {
        auto left = Get<DWORD>();
        values.Reserve(left);
        while (left > 0) {
            const DWORD some = std::min<DWORD>(left, 16);
            ItemSlab slab(SizeOfSmallOnes(some));
            for (DWORD i = 0; i < some; ++i) Append(values, Value(slab));
            left -= some;
        }
    }

private:
    static void Append(NamedList& list, NamedItem::Ref item)
    {
        const std::uint32_t hash = item->Hash();
        list.Append(std::move(item), hash);
    }

    static constexpr std::size_t small = 512; // what one value may keep in memory for another

    template <class T>
    T Get()
    {
        T value;
        std::memcpy(&value, Take(sizeof value), sizeof value);
        return value;
    }

    const BYTE* Take(std::size_t size)
    {
        const BYTE* taken = m_at;
        m_at += size;
        return taken;
    }

    std::string_view Bytes(std::size_t size) { return {reinterpret_cast<const char*>(Take(size)), size}; }

    NamedItem::Ref Store()
    {
        const auto units = Get<WORD>();
        m_name.resize(units);
        const std::string_view name = Name(units, m_name.data());
        const BYTE* begin = m_at;
        const auto size = Get<DWORD>();
        m_at = begin + size;
        if (size <= emptyForm) return NamedItem::Make(name, nullptr);
        return NamedItem::Make(name, ItemContent::Ref(new PropertyStoreBody({m_form, begin})));
    }

    // What the small ones among the next values take in a slab if all names are plain.
    std::size_t SizeOfSmallOnes(DWORD count)
    {
        const BYTE* begin = m_at;
        std::size_t all = 0;
        for (DWORD i = 0; i < count; ++i) {
            const auto units = Get<WORD>();
            Take(units * sizeof(WCHAR) + sizeof(DWORD));
            const auto size = Get<DWORD>();
            Take(size);
            if (const std::size_t one = ItemSlab::SizeOf(units, size); one <= small) all += one;
        }
        m_at = begin;
        return all;
    }

    NamedItem::Ref Value(ItemSlab& slab)
    {
        const auto units = Get<WORD>();
        const BYTE* behindName = m_at + units * sizeof(WCHAR);
        DWORD size;
        std::memcpy(&size, behindName + sizeof(DWORD), sizeof size);
        const bool isSmall = ItemSlab::SizeOf(units, size) <= small;
        if (!isSmall) m_name.resize(units);
        const std::string_view name = Name(units, isSmall ? slab.NameRoom() : m_name.data());
        const auto type = Get<DWORD>();
        const std::string_view data = Bytes(Get<DWORD>());
        if (name.data() == slab.NameRoom()) return slab.Make(name, type, data);
        return NamedItem::Make(name, type, data);
    }

    // Writes a name of so many units there if it is plain, else into m_name.
    std::string_view Name(std::size_t units, char* to)
    {
        const BYTE* from = Take(units * sizeof(WCHAR));
        unsigned notPlain = 0;
        for (std::size_t i = 0; i < units; ++i) {
            WORD unit;
            std::memcpy(&unit, from + i * sizeof unit, sizeof unit);
            notPlain |= unit == 0 ? 0x80u : unit;
            to[i] = static_cast<char>(unit);
        }
        if (notPlain < 0x80) return {to, units};
        std::u16string wide(units, u'\0');
        std::memcpy(wide.data(), from, units * sizeof(WCHAR));
        return m_name = NarrowText(wide).c_str(); // a name ends at a zero
    }

    const PackedForm& m_form;
    const BYTE* m_at;
    std::string m_name;
};

} // namespace

// Holds a body that is packed, so that no other thread unpacks it meanwhile. False for one that is not.
class PropertyStoreBody::Turn {
public:
    explicit Turn(const PropertyStoreBody& body) : m_state(body.m_state)
    {
        int state = packed;
        while (!m_state.compare_exchange_weak(state, unpacking, std::memory_order_acquire)) {
            if (state == open) return;
            if (state == unpacking) m_state.wait(unpacking, std::memory_order_relaxed);
            state = packed;
        }
        m_isHeld = true;
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn()
    {
        if (!m_isHeld) return;
        m_state.store(m_next, std::memory_order_release);
        m_state.notify_all();
    }

    explicit operator bool() const { return m_isHeld; }
    void LeaveOpen() { m_next = open; }

private:
    std::atomic<int>& m_state;
    int m_next = packed;
    bool m_isHeld = false;
};

PropertyStoreBody::PropertyStoreBody(const PropertyStoreBody& source) : ItemContent()
{
    const Turn turn(source);
    m_values = source.m_values;
    m_stores = source.m_stores;
    if (!turn) return;
    m_packed = source.m_packed;
    m_state.store(packed, std::memory_order_relaxed);
}

void PropertyStoreBody::Append(PackedForm form)
{
    m_packed.push_back(std::move(form));
    m_state.store(packed, std::memory_order_relaxed);
}

void PropertyStoreBody::Unpack() const
{
    Turn turn(*this);
    if (!turn) return; // another thread was faster
    NamedList stores = m_stores, values = m_values;
    for (const PackedForm& form : m_packed) {
        FormParser parser(form);
        parser.AppendStores(stores);
        parser.AppendValues(values);
    }
    m_stores = std::move(stores);
    m_values = std::move(values);
    m_packed = {};
    turn.LeaveOpen();
}

// Takes a tree down one body after another, for nesting may be deeper than the stack: what ends while another
// one does waits for it.
void PropertyStoreBody::End() noexcept
{
    struct Ending {
        PropertyStoreBody* waiting = nullptr;
        bool isRunning = false;
    };
    [[gnu::tls_model("initial-exec")]] static constinit thread_local Ending ending;
    m_nextToEnd = std::exchange(ending.waiting, this);
    if (ending.isRunning) return;
    ending.isRunning = true;
    while (PropertyStoreBody* body = ending.waiting) {
        ending.waiting = body->m_nextToEnd;
        delete body;
    }
    ending.isRunning = false;
}

} // namespace corekit::detail
