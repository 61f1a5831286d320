// The stream form of a property store.
#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/TextConversion.h"
#include "corekit/stores/PropertyStoreBody.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>
#include <new>
#include <stdexcept>

namespace {

using corekit::detail::PropertyStoreBody;
using corekit::detail::PropertyStoreChild;
using corekit::detail::PropertyStoreEntry;
using corekit::detail::PropertyStoreRef;

constexpr DWORD formVersion = 256;
constexpr UINT corruptData = 4147;
constexpr std::size_t shortestValue = 10, shortestStore = 14; // bytes in the stream

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

    void PutName(const std::string& name)
    {
        const std::size_t bytes = sizeof(WORD) + name.size() * sizeof(WCHAR);
        if (bytes <= sizeof m_buffer) {
            if (bytes > sizeof m_buffer - m_used) Flush();
            if (PutPlain(name)) return;
        }
        const std::u16string wide = corekit::detail::WideText(name);
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
    bool PutPlain(const std::string& name)
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

void PutValues(Writer& writer, const PropertyStoreBody* body)
{
    if (!body) return writer.Put(0);
    writer.Put(static_cast<DWORD>(body->values.Count()));
    for (const PropertyStoreEntry& entry : body->values.All()) {
        const auto size = static_cast<DWORD>(entry.data.size());
        writer.PutName(entry.name);
        writer.Put(entry.type);
        writer.Put(size);
        writer.PutBytes(entry.data.data(), size);
    }
}

// Walks the tree with a stack of its own, for nesting may be deeper than the thread's.
void PutTree(Writer& writer, const PropertyStoreBody* root)
{
    struct Level {
        const PropertyStoreBody* body;
        std::size_t next = 0;
    };
    std::vector<Level> open;
    const auto begin = [&](const PropertyStoreBody* body) {
        writer.Put(formVersion);
        writer.Put(body ? static_cast<DWORD>(body->stores.Count()) : 0);
        open.push_back({body});
    };
    begin(root);
    while (!open.empty()) {
        Level& level = open.back();
        if (level.body && level.next < level.body->stores.All().size()) {
            const PropertyStoreChild& child = level.body->stores.All()[level.next++];
            writer.PutName(child.name);
            begin(child.store.Get());
        } else {
            PutValues(writer, level.body);
            open.pop_back();
        }
    }
}

// Takes large pieces off the stream and hands out small ones. What was taken in advance goes back: the stream
// ends up behind the last byte handed out.
class Reader {
public:
    explicit Reader(CStream& stream) : m_stream(stream), m_position(stream.GetCurrentPos())
    {
        const DWORD size = stream.GetSize();
        m_left = size > m_position ? size - m_position : 0;
        m_buffer.resize(std::min<std::size_t>(16384, std::max<std::size_t>(m_left, 16)));
    }

    void ReadTree(PropertyStoreRef& ref, int depth)
    {
        if (depth > CPropertyStore::deepestNesting) ThrowChainedException(nullptr, corruptData);
        if (const DWORD version = Get(); version != formVersion) {
            ThrowInvalidVersionException("CPropertyStore", version, formVersion);
        }
        if (const DWORD count = Get(); count > 0) {
            auto& stores = ref.Own().stores;
            stores.Reserve(std::min<std::size_t>(count, Available() / shortestStore));
            for (DWORD i = 0; i < count; ++i) {
                PropertyStoreChild child;
                ReadName(child.name);
                ReadTree(child.store, depth + 1);
                stores.Append(std::move(child));
            }
        }
        if (const DWORD count = Get(); count > 0) {
            auto& values = ref.Own().values;
            values.Reserve(std::min<std::size_t>(count, Available() / shortestValue));
            for (DWORD i = 0; i < count; ++i) values.Append(ReadValue());
        }
    }

    void GiveBack()
    {
        if (m_at == m_end) return;
        m_left += static_cast<DWORD>(m_end - m_at);
        m_position -= static_cast<DWORD>(m_end - m_at);
        m_at = m_end = 0;
        m_stream.SeekToPos(m_position);
    }

    // For the way out of a failure, which matters more than one here.
    void GiveBackQuietly()
    {
        try {
            GiveBack();
        } catch (CException* second) {
            second->Delete();
        }
    }

private:
    std::size_t Available() const { return m_end - m_at + m_left; }

    // The next bytes in one piece, at most 2^17 or so.
    const BYTE* Take(std::size_t size)
    {
        if (m_end - m_at < size) Fill(size);
        const BYTE* taken = m_buffer.data() + m_at;
        m_at += size;
        return taken;
    }

    [[gnu::noinline]] void Fill(std::size_t size)
    {
        if (Available() < size) return ReadBeyond(size);
        std::memmove(m_buffer.data(), m_buffer.data() + m_at, m_end - m_at);
        m_end -= m_at;
        m_at = 0;
        if (m_buffer.size() < size) m_buffer.resize(size);
        const std::size_t more = std::min<std::size_t>(m_buffer.size() - m_end, m_left);
        ReadInto(m_buffer.data() + m_end, more);
        m_end += more;
    }

    // The stream itself has the last word on bytes that it did not announce; as a rule it throws.
    void ReadBeyond(std::size_t size)
    {
        GiveBack();
        m_buffer.resize(std::max(m_buffer.size(), size));
        m_at = m_end = 0;
        ReadInto(m_buffer.data(), size);
        m_end = size;
    }

    void ReadInto(void* to, std::size_t size)
    {
        m_stream.Read(to, static_cast<DWORD>(size));
        m_position += static_cast<DWORD>(size);
        m_left -= std::min(m_left, static_cast<DWORD>(size));
    }

    DWORD Get()
    {
        DWORD value;
        std::memcpy(&value, Take(sizeof value), sizeof value);
        return value;
    }

    void ReadName(std::string& name)
    {
        WORD length;
        std::memcpy(&length, Take(sizeof length), sizeof length);
        const BYTE* from = Take(length * sizeof(WCHAR));
        name.resize(length);
        unsigned notPlain = 0;
        for (std::size_t i = 0; i < length; ++i) {
            WORD unit;
            std::memcpy(&unit, from + i * sizeof unit, sizeof unit);
            notPlain |= unit == 0 ? 0x80u : unit;
            name[i] = static_cast<char>(unit);
        }
        if (notPlain >= 0x80) name = Narrowed(from, length);
    }

    static std::string Narrowed(const BYTE* from, std::size_t length)
    {
        std::u16string wide(length, u'\0');
        std::memcpy(wide.data(), from, length * sizeof(WCHAR));
        return corekit::detail::NarrowText(wide).c_str(); // a name ends at a zero
    }

    PropertyStoreEntry ReadValue()
    {
        PropertyStoreEntry entry;
        ReadName(entry.name);
        entry.type = static_cast<ePSEntryType>(Get());
        ReadData(entry.data, Get());
        return entry;
    }

    // Memory is taken for what the stream has, and by small steps for what it promises beyond.
    void ReadData(std::string& data, DWORD size)
    {
        if (size <= m_end - m_at) {
            data.assign(reinterpret_cast<const char*>(Take(size)), size);
            return;
        }
        data.assign(reinterpret_cast<const char*>(m_buffer.data()) + m_at, m_end - m_at);
        m_at = m_end;
        while (data.size() < size) {
            const std::size_t had = data.size();
            const std::size_t more = std::min<std::size_t>(size - had, m_left > 0 ? m_left : 4096);
            data.resize(had + more);
            ReadInto(data.data() + had, more);
        }
    }

    CStream& m_stream;
    DWORD m_position; // of the stream
    DWORD m_left;     // what it still has
    std::vector<BYTE> m_buffer;
    std::size_t m_at = 0, m_end = 0;
};

} // namespace

void CPropertyStore::WriteStream(CStream& stream)
{
    try {
        const auto writer = std::make_unique<Writer>(stream);
        PutTree(*writer, Body());
        writer->Flush();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}

void CPropertyStore::ReadStream(CStream& stream)
{
    try {
        Reader reader(stream);
        try {
            if (m_inner) Own();
            reader.ReadTree(m_body, 0);
        } catch (...) {
            reader.GiveBackQuietly();
            throw;
        }
        reader.GiveBack();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    } catch (const std::length_error&) {
        AfxThrowMemoryException();
    }
}
