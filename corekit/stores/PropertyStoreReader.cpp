// Reads the stream form of a property store: checks it and keeps its bytes, which are unpacked only when
// somebody looks at them.
#include "corekit/foundation/ChainedException.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/PropertyStore.h"
#include "corekit/stores/PropertyStoreBody.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

namespace {

using corekit::detail::PackedForm;

constexpr DWORD formVersion = 256;

// Takes large pieces off the stream and walks over the form in them. What was taken in advance goes back: the
// stream ends up behind the last byte that was walked over.
class Reader {
public:
    explicit Reader(CStream& stream) : m_stream(stream), m_position(stream.GetCurrentPos())
    {
        const DWORD size = stream.GetSize();
        m_left = size > m_position ? size - m_position : 0;
        SetRoom(std::clamp<std::size_t>(m_left, 16, 16384));
    }

    void ReadForm() { PassForm(m_root, 0); }

    // The form, without what was not read to its end. None for no elements.
    PackedForm TakeForm()
    {
        if (m_root.stores == 0 && m_root.values == 0) return {};
        SetRoom(Seal(m_root));
        return {m_bytes.release(), std::free};
    }

    void GiveBack()
    {
        if (m_at == m_end) return;
        m_left += static_cast<DWORD>(m_end - m_at);
        m_position -= static_cast<DWORD>(m_end - m_at);
        m_end = m_at;
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
    // A store among the bytes, as far as it is whole.
    struct Form {
        std::size_t begin = 0;
        std::size_t valuesAt = 0; // where the count of the values stands, behind the nested stores
        std::size_t valuesEnd = 0;
        DWORD stores = 0, values = 0;
    };

    void PassForm(Form& form, int depth)
    {
        if (depth > CPropertyStore::deepestNesting) ThrowChainedException(nullptr, message::dataCorrupt);
        form.begin = m_at;
        if (const auto version = Get<DWORD>(); version != formVersion) {
            ThrowInvalidVersionException("CPropertyStore", version, formVersion);
        }
        const auto stores = Get<DWORD>();
        for (form.valuesAt = m_at; form.stores < stores; form.valuesAt = m_at, ++form.stores) {
            PassName();
            Form nested;
            PassForm(nested, depth + 1);
        }
        const auto values = Get<DWORD>();
        for (; form.values < values; form.valuesEnd = m_at, ++form.values) {
            PassName();
            Take(sizeof(DWORD)); // the type
            PassData(Get<DWORD>());
        }
        Seal(form);
    }

    // Puts the size and the counts in their places, and tells where the form ends.
    std::size_t Seal(const Form& form)
    {
        const std::size_t end = std::max(form.valuesEnd, form.valuesAt + sizeof form.values);
        const auto size = static_cast<DWORD>(end - form.begin);
        std::memcpy(m_bytes.get() + form.begin, &size, sizeof size);
        std::memcpy(m_bytes.get() + form.begin + sizeof size, &form.stores, sizeof form.stores);
        std::memcpy(m_bytes.get() + form.valuesAt, &form.values, sizeof form.values);
        return end;
    }

    void PassName() { Take(Get<WORD>() * sizeof(WCHAR)); }

    // Memory is taken for what the stream has, and by small steps for what it promises beyond.
    void PassData(std::size_t size)
    {
        const std::size_t here = std::min(size, m_end - m_at);
        m_at += here;
        for (size -= here; size > 0;) {
            const std::size_t step = m_left > 0 ? std::min<std::size_t>(m_left, 1 << 20) : 4096;
            const std::size_t more = std::min(size, step);
            ReadInto(more);
            m_at = m_end;
            size -= more;
        }
    }

    template <class T>
    T Get()
    {
        T value;
        std::memcpy(&value, Take(sizeof value), sizeof value);
        return value;
    }

    // The next bytes in one piece, at most 2^17 or so.
    const BYTE* Take(std::size_t size)
    {
        if (m_end - m_at < size) Fill(size);
        const BYTE* taken = m_bytes.get() + m_at;
        m_at += size;
        return taken;
    }

    [[gnu::noinline]] void Fill(std::size_t size)
    {
        if (m_end - m_at + m_left < size) {
            // The stream itself has the last word on bytes that it did not announce; as a rule it throws.
            GiveBack();
            return ReadInto(size);
        }
        const std::size_t missing = size - (m_end - m_at);
        if (m_room - m_end < missing) Grow(missing);
        ReadInto(std::min<std::size_t>(m_room - m_end, m_left));
    }

    void ReadInto(std::size_t size)
    {
        if (m_room - m_end < size) Grow(size);
        m_stream.Read(m_bytes.get() + m_end, static_cast<DWORD>(size));
        m_end += size;
        m_position += static_cast<DWORD>(size);
        m_left -= std::min(m_left, static_cast<DWORD>(size));
    }

    // Growing may take the old room and the new one at once, so it ends in one step to all that the stream
    // has, and not beyond.
    void Grow(std::size_t size)
    {
        constexpr std::size_t large = 8 << 20, step = 1 << 20;
        const std::size_t rest = m_left > 0 ? m_left : step;
        SetRoom(m_end + std::max(size, m_room < large ? std::min(3 * m_room, rest) : rest));
    }

    // With some bytes more than asked for: a form that was cut short may need another count, too.
    void SetRoom(std::size_t room)
    {
        if (room > std::numeric_limits<DWORD>::max()) throw std::length_error("property store");
        void* bytes = std::realloc(m_bytes.get(), room + corekit::detail::packedSlack);
        if (!bytes) throw std::bad_alloc();
        static_cast<void>(m_bytes.release());
        m_bytes.reset(static_cast<BYTE*>(bytes));
        m_room = room;
    }

    struct Freed {
        void operator()(BYTE* bytes) const { std::free(bytes); }
    };

    CStream& m_stream;
    DWORD m_position; // of the stream
    DWORD m_left;     // what it still has
    std::unique_ptr<BYTE, Freed> m_bytes;
    std::size_t m_room = 0, m_at = 0, m_end = 0;
    Form m_root;
};

} // namespace

void CPropertyStore::ReadStream(CStream& stream)
{
    try {
        Reader reader(stream);
        const auto keep = [&] {
            if (PackedForm form = reader.TakeForm()) OwnBody().Append(std::move(form));
        };
        try {
            reader.ReadForm();
            reader.GiveBack();
        } catch (...) {
            reader.GiveBackQuietly();
            keep();
            throw;
        }
        keep();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    } catch (const std::length_error&) {
        AfxThrowMemoryException();
    }
}
