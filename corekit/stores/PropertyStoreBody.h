// What a property store holds, shared by its copies until one of them is changed.
//
// What came from a stream stays packed, as its bytes, until somebody looks at it: built, a small element
// takes many times the memory that it has in the stream. A level is unpacked at a time; what nests in it
// shares the bytes and stays packed.
#pragma once

#include "corekit/stores/NamedList.h"

#include <atomic>
#include <memory>
#include <vector>

namespace corekit::detail {

// The stream form of a store that was found sound, with its size in the place of the version. A share of the
// bytes around it.
using PackedForm = std::shared_ptr<const BYTE>;
// Bytes behind a form that may be read, whatever they are: names are unpacked by whole blocks.
inline constexpr std::size_t packedSlack = 32;

class PropertyStoreBody final : public ItemContent {
public:
    PropertyStoreBody() = default;
    explicit PropertyStoreBody(PackedForm form) : m_state(packed), m_packed(std::move(form)) {}
    PropertyStoreBody(const PropertyStoreBody& source);

    // Look at the content, which other threads may do at the same time. Throw bad_alloc when there is no
    // memory to unpack it, and leave it packed.
    const NamedList& Values() const { return Open().m_values; }
    const NamedList& Stores() const { return Open().m_stores; }

    // These change a body that nobody else sees.
    NamedList& ValuesToChange() { return Open().m_values; }
    NamedList& StoresToChange() { return Open().m_stores; }
    // Adds the elements of a form.
    void Append(PackedForm form);

private:
    enum State : int { open, packed, unpacking };
    class Turn;

    PropertyStoreBody& Open() const
    {
        if (m_state.load(std::memory_order_acquire) != open) Unpack();
        return const_cast<PropertyStoreBody&>(*this);
    }
    void Unpack() const;
    void End() noexcept override;

    mutable std::atomic<int> m_state = open;
    mutable NamedList m_values, m_stores;
    mutable PackedForm m_packed;                  // what follows in the lists
    mutable std::vector<PackedForm> m_morePacked; // and behind it, where several were read without a look
    PropertyStoreBody* m_nextToEnd = nullptr;
};

} // namespace corekit::detail
