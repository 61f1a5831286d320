#include "corekit/stores/PropertyStoreBody.h"

#include "corekit/foundation/TextConversion.h"

#include <cstring>
#include <mutex>

namespace corekit::detail {

namespace {

constexpr DWORD emptyForm = 12; // the size of a form without elements

// Held while a body is unpacked, and while one that is packed is copied.
std::mutex g_packedBodies;

// Takes apart bytes that were checked before.
class FormParser {
public:
    explicit FormParser(const PackedForm& form) : m_form(form), m_at(form.get()) { Get<DWORD>(); }

    template <class T>
    T Get()
    {
        T value;
        std::memcpy(&value, Take(sizeof value), sizeof value);
        return value;
    }

    PropertyStoreChild Store()
    {
        PropertyStoreChild child;
        GetName(child.name);
        const BYTE* begin = m_at;
        const auto size = Get<DWORD>();
        if (size > emptyForm) child.store = PropertyStoreRef(new PropertyStoreBody({m_form, begin}));
        m_at = begin + size;
        return child;
    }

    PropertyStoreEntry Value()
    {
        PropertyStoreEntry entry;
        GetName(entry.name);
        entry.type = static_cast<ePSEntryType>(Get<DWORD>());
        const auto size = Get<DWORD>();
        entry.data.assign(reinterpret_cast<const char*>(Take(size)), size);
        return entry;
    }

private:
    const BYTE* Take(std::size_t size)
    {
        const BYTE* taken = m_at;
        m_at += size;
        return taken;
    }

    void GetName(std::string& name)
    {
        const auto length = Get<WORD>();
        const BYTE* from = Take(length * sizeof(WCHAR));
        name.resize(length);
        char* to = name.data();
        unsigned notPlain = 0;
        for (std::size_t i = 0; i < length; ++i) {
            WORD unit;
            std::memcpy(&unit, from + i * sizeof unit, sizeof unit);
            notPlain |= unit == 0 ? 0x80u : unit;
            to[i] = static_cast<char>(unit);
        }
        if (notPlain >= 0x80) name = Narrowed(from, length);
    }

    static std::string Narrowed(const BYTE* from, std::size_t length)
    {
        std::u16string wide(length, u'\0');
        std::memcpy(wide.data(), from, length * sizeof(WCHAR));
        return NarrowText(wide).c_str(); // a name ends at a zero
    }

    const PackedForm& m_form;
    const BYTE* m_at;
};

} // namespace

PropertyStoreBody::PropertyStoreBody(const PropertyStoreBody& source)
{
    std::unique_lock lock(g_packedBodies, std::defer_lock);
    if (source.IsPacked()) lock.lock();
    m_values = source.m_values;
    m_stores = source.m_stores;
    m_packed = source.m_packed;
    m_isPacked.store(!m_packed.empty(), std::memory_order_relaxed);
}

void PropertyStoreBody::Unpack()
{
    const std::lock_guard lock(g_packedBodies);
    if (m_packed.empty()) return; // another thread was faster
    auto values = m_values;
    auto stores = m_stores;
    for (const PackedForm& form : m_packed) {
        FormParser parser(form);
        const auto storeCount = parser.Get<DWORD>();
        stores.Reserve(storeCount);
        for (DWORD i = 0; i < storeCount; ++i) stores.Append(parser.Store());
        const auto valueCount = parser.Get<DWORD>();
        values.Reserve(valueCount);
        for (DWORD i = 0; i < valueCount; ++i) values.Append(parser.Value());
    }
    m_values = std::move(values);
    m_stores = std::move(stores);
    m_packed = {};
    m_isPacked.store(false, std::memory_order_release);
}

PropertyStoreBody& PropertyStoreRef::Own()
{
    if (!m_body) {
        m_body = new PropertyStoreBody;
    } else if (m_body->IsShared()) {
        *this = PropertyStoreRef(new PropertyStoreBody(*m_body));
    }
    return *m_body;
}

// Takes a tree down level by level, for nesting may be deeper than the stack. Bodies that are still packed
// have nothing below them.
void PropertyStoreBody::Free(PropertyStoreBody* body)
{
    std::vector<PropertyStoreRef> below;
    const auto collect = [&below](PropertyStoreBody& parent) {
        for (PropertyStoreChild& child : parent.m_stores.All()) {
            const PropertyStoreBody* nested = child.store.Get();
            if (!nested || nested->IsPacked() || nested->m_stores.Count() == 0) continue;
            try {
                below.push_back(std::move(child.store));
            } catch (const std::bad_alloc&) {
                return; // the rest goes down through its own destructors
            }
        }
    };
    collect(*body);
    delete body;
    while (!below.empty()) {
        PropertyStoreRef next = std::move(below.back());
        below.pop_back();
        if (!next->IsShared()) collect(*next.Get());
    }
}

} // namespace corekit::detail
