// Writes the stream form of a property store.
#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/TextConversion.h"
#include "corekit/framework/Exception.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/PropertyStore.h"
#include "corekit/stores/PropertyStoreBody.h"

#include <cstring>
#include <memory>
#include <new>

namespace {

using corekit::detail::NamedItem;
using corekit::detail::PropertyStoreBody;

constexpr DWORD formVersion = 256;

// Gathers small pieces into large writes.
class Writer {
public:
    explicit Writer(CStream& stream) : m_stream(stream) {}

    void Put(DWORD value)
    {
        if (sizeof m_buffer - m_used < sizeof value) Flush();
        std::memcpy(m_buffer + m_used, &value, sizeof value);
        m_used += sizeof value;
    }

    void PutBytes(const void* data, std::size_t size)
    {
        if (size > sizeof m_buffer - m_used) {
            Flush();
            if (size > sizeof m_buffer) return m_stream.Write(data, static_cast<DWORD>(size));
        }
        std::memcpy(m_buffer + m_used, data, size);
        m_used += size;
    }

    void PutName(std::string_view name)
    {
        const std::size_t bytes = sizeof(WORD) + name.size() * sizeof(WCHAR);
        if (bytes <= sizeof m_buffer) {
            if (bytes > sizeof m_buffer - m_used) Flush();
            if (PutPlain(name)) return;
        }
        const std::u16string wide = corekit::detail::wideText(name);
        const WORD length = static_cast<WORD>(wide.size());
        PutBytes(&length, sizeof length);
        PutBytes(wide.data(), length * sizeof(WCHAR));
    }

    void Flush()
    {
        const std::size_t used = m_used;
        m_used = 0;
        if (used > 0) m_stream.Write(m_buffer, static_cast<DWORD>(used));
    }

private:
    // False, with nothing written, for a name that only the code page can widen.
    bool PutPlain(std::string_view name)
    {
        BYTE* to = m_buffer + m_used;
        const WORD length = static_cast<WORD>(name.size());
        std::memcpy(to, &length, sizeof length);
        to += sizeof length;
        unsigned seen = 0;
        for (const char c : name) {
            const auto unit = static_cast<WORD>(static_cast<unsigned char>(c));
            seen |= unit;
            std::memcpy(to, &unit, sizeof unit);
            to += sizeof unit;
        }
        if (seen >= 0x80) return false;
        m_used = static_cast<std::size_t>(to - m_buffer);
        return true;
    }

    CStream& m_stream;
    std::size_t m_used = 0;
    BYTE m_buffer[8192];
};

const PropertyStoreBody* bodyOf(const NamedItem& store)
{
    return static_cast<const PropertyStoreBody*>(store.Content());
}

bool isDeeperThan(int levels, const PropertyStoreBody* body)
{
    bool isDeeper = false;
    if (body)
        body->Stores().ForEach([&](const NamedItem& store) {
            isDeeper = isDeeper || levels == 0 || isDeeperThan(levels - 1, bodyOf(store));
        });
    return isDeeper;
}

void putTree(Writer& writer, const PropertyStoreBody* body)
{
    writer.Put(formVersion);
    if (!body) return writer.Put(0), writer.Put(0);
    writer.Put(static_cast<DWORD>(body->Stores().Count()));
    body->Stores().ForEach([&](const NamedItem& store) {
        writer.PutName(store.Name());
        putTree(writer, bodyOf(store));
    });
    writer.Put(static_cast<DWORD>(body->Values().Count()));
    body->Values().ForEach([&](const NamedItem& value) {
        const std::string_view data = value.Data();
        writer.PutName(value.Name());
        writer.Put(value.Type());
        writer.Put(static_cast<DWORD>(data.size()));
        writer.PutBytes(data.data(), data.size());
    });
}

} // namespace

void CPropertyStore::WriteStream(CStream& stream) const
{
    try {
        const PropertyStoreBody* body = m_body.load(std::memory_order_acquire);
        if (isDeeperThan(deepestNesting, body)) ThrowChainedException(nullptr, message::dataCorrupt);
        const auto writer = std::make_unique<Writer>(stream);
        putTree(*writer, body);
        writer->Flush();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}
