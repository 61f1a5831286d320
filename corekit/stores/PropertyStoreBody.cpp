#include "corekit/stores/PropertyStoreBody.h"

#include "corekit/foundation/TextConversion.h"
#include "corekit/platform/TextVector.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace corekit::detail {

namespace {

constexpr DWORD emptyForm = 12; // the size of a form without elements

// Takes apart bytes that were checked before.
class FormParser {
public:
    explicit FormParser(const PackedForm& form) : m_form(form), m_at(form.get())
    {
        m_end = form.get() + Get<DWORD>();
    }

    void AppendTo(NamedList& stores, NamedList& values)
    {
        AppendStores(stores);
        AppendValues(values);
    }

private:
    void AppendStores(NamedList& stores)
    {
        auto left = Get<DWORD>();
        for (stores.Reserve(left); left > 0; --left) {
            NamedItem::Ref store = Store();
            const std::uint32_t hash = store->Hash();
            stores.Append(std::move(store), hash);
        }
    }

    void AppendValues(NamedList& values)
    {
        const auto count = Get<DWORD>();
        values.Reserve(count);
        ItemSlab slab;
        for (DWORD left = count; left > 0; --left) AppendValue(values, slab, left);
    }

    // What one value may keep in memory for another.
    static constexpr std::size_t small = 512, slabSize = 2048;

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

    NamedItem::Ref Store()
    {
        const auto units = Get<WORD>();
        const std::string_view name = Name(units, RoomForName(units));
        const BYTE* begin = m_at;
        const auto size = Get<DWORD>();
        m_at = begin + size;
        if (size <= emptyForm) return NamedItem::Make(name, nullptr);
        return NamedItem::Make(name, ItemContent::Ref(new PropertyStoreBody({m_form, begin})));
    }

    void AppendValue(NamedList& values, ItemSlab& slab, DWORD left)
    {
        const auto units = Get<WORD>();
        DWORD size;
        std::memcpy(&size, m_at + units * sizeof(WCHAR) + sizeof(DWORD), sizeof size);
        const std::size_t room = ItemSlab::SizeOf(units, size);
        const bool isSmall = room <= small;
        if (isSmall && room > slab.Left()) slab.Start(std::min(slabSize, MostOf(left)));
        const std::string_view name = Name(units, isSmall ? slab.NameRoom() : RoomForName(units));
        const auto type = Get<DWORD>();
        const BYTE* data = Take(Get<DWORD>());
        if (!isSmall || name.data() != slab.NameRoom()) {
            NamedItem::Ref item = NamedItem::Make(name, type, {reinterpret_cast<const char*>(data), size});
            const std::uint32_t hash = item->Hash();
            return values.Append(std::move(item), hash);
        }
        // While the name's block is what was written last, before its end and the data go over it in pieces.
        const std::uint32_t hash = NameKey(name.data(), units).Hash();
        values.Append(slab.Make(units, type, data, size), hash);
    }

    // No less than what the values that are left take as items, from the one whose name comes next.
    std::size_t MostOf(DWORD left) const
    {
        constexpr std::size_t form = sizeof(WORD) + 2 * sizeof(DWORD); // of a value without name and data
        const auto bytes = static_cast<std::size_t>(m_end - m_at) + sizeof(WORD);
        return bytes + left * (ItemSlab::SizeOf(0, 0) - form);
    }

    // Writes a name of so many units there, and some bytes more, if it is plain; else into m_name.
    std::string_view Name(std::size_t units, char* to)
    {
        const BYTE* from = Take(units * sizeof(WCHAR));
        if (NarrowPlain(from, units, to)) return {to, units};
        std::u16string wide(units, u'\0');
        std::memcpy(wide.data(), from, units * sizeof(WCHAR));
        return m_name = narrowText(wide).c_str(); // a name ends at a zero
    }

    // Reads and writes whole blocks of sixteen characters: what is written in one piece is ready soonest for
    // the look at it that follows. False for a zero or one beyond ASCII.
    static bool NarrowPlain(const BYTE* from, std::size_t units, char* to)
    {
        constexpr Units lowLanes{0, 1, 2, 3, 4, 5, 6, 7}, highLanes{8, 9, 10, 11, 12, 13, 14, 15};
        Units odd{};
        for (std::size_t at = 0; at < units; at += 16) {
            const Units low = loadUnits(from + at * sizeof(WCHAR));
            const Units high = loadUnits(from + (at + 8) * sizeof(WCHAR));
            const Units left = spreadUnit(static_cast<char16_t>(std::min<std::size_t>(units - at, 16)));
            odd |= (low | (low - spreadUnit(1))) & std::bit_cast<Units>(lowLanes < left);
            odd |= (high | (high - spreadUnit(1))) & std::bit_cast<Units>(highLanes < left);
            const auto bytes =
                __builtin_shufflevector(std::bit_cast<Bytes16>(low), std::bit_cast<Bytes16>(high), 0, 2, 4, 6,
                                        8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
            std::memcpy(to + at, &bytes, sizeof bytes);
        }
        return markBits(zeroUnits(odd & spreadUnit(0xFF80))) == 0xFFFF;
    }

    char* RoomForName(std::size_t units)
    {
        m_name.resize(units + ItemSlab::slack);
        return m_name.data();
    }

    const PackedForm& m_form;
    const BYTE *m_at, *m_end;
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
    m_morePacked = source.m_morePacked;
    m_state.store(packed, std::memory_order_relaxed);
}

void PropertyStoreBody::Append(PackedForm form)
{
    if (m_packed)
        m_morePacked.push_back(std::move(form));
    else
        m_packed = std::move(form);
    m_state.store(packed, std::memory_order_relaxed);
}

void PropertyStoreBody::Unpack() const
{
    Turn turn(*this);
    if (!turn) return; // another thread was faster
    NamedList stores = m_stores, values = m_values;
    FormParser(m_packed).AppendTo(stores, values);
    for (const PackedForm& form : m_morePacked) FormParser(form).AppendTo(stores, values);
    m_stores = std::move(stores);
    m_values = std::move(values);
    m_packed = {};
    m_morePacked = {};
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
