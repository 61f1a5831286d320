// What a property store holds, shared by its copies until one of them is changed.
//
// What came from a stream stays packed, as its bytes, until somebody looks at it: built, a small element
// takes many times the memory that it has in the stream. A level is unpacked at a time; what nests in it
// shares the bytes and stays packed.
#pragma once

#include "corekit/platform/OnlyThread.h"
#include "corekit/stores/NameIndex.h"
#include "corekit/stores/PropertyStore.h"

#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corekit::detail {

struct PropertyStoreEntry {
    std::string name;
    ePSEntryType type = ePSNone;
    std::string data;
};

struct PropertyStoreChild {
    std::string name;
    PropertyStoreRef store;
};

// The stream form of a store that was found sound, with its size in the place of the version. A share of the
// bytes around it.
using PackedForm = std::shared_ptr<const BYTE>;

// Elements in the order of their arrival, found by name.
template <class Element>
class NamedList {
public:
    int Count() const { return static_cast<int>(m_elements.size()); }
    const Element* At(int index) const
    {
        return index >= 0 && index < Count() ? &m_elements[static_cast<std::size_t>(index)] : nullptr;
    }
    const std::vector<Element>& All() const { return m_elements; }
    std::vector<Element>& All() { return m_elements; }

    // The last of that name, -1 if there is none.
    int Find(std::string_view name) const
    {
        if (m_elements.empty()) return -1;
        return m_index.Find(HashOfName(name),
                            [&](std::size_t i) { return SameName(m_elements[i].name, name); });
    }
    Element* FindElement(std::string_view name)
    {
        const int index = Find(name);
        return index < 0 ? nullptr : &m_elements[static_cast<std::size_t>(index)];
    }
    void Reserve(std::size_t count)
    {
        m_elements.reserve(m_elements.size() + count);
        m_index.Reserve(m_elements.size() + count);
    }
    void Append(Element element)
    {
        const std::uint32_t hash = HashOfName(element.name);
        m_elements.push_back(std::move(element));
        try {
            m_index.Append(hash, SameNames());
        } catch (...) {
            m_elements.pop_back();
            throw;
        }
    }
    void Remove(int index)
    {
        m_elements.erase(m_elements.begin() + index);
        m_index.Remove(static_cast<std::size_t>(index), SameNames());
    }

private:
    auto SameNames() const
    {
        return
            [this](std::size_t a, std::size_t b) { return SameName(m_elements[a].name, m_elements[b].name); };
    }

    std::vector<Element> m_elements;
    NameIndex m_index;
};

class PropertyStoreBody {
public:
    PropertyStoreBody() = default;
    explicit PropertyStoreBody(PackedForm form) { Append(std::move(form)); }
    PropertyStoreBody(const PropertyStoreBody& source);
    PropertyStoreBody& operator=(const PropertyStoreBody&) = delete;

    // Look at the content, which copies in other threads may do at the same time. Throw bad_alloc when there
    // is no memory to unpack it, and leave it packed.
    NamedList<PropertyStoreEntry>& Values()
    {
        if (IsPacked()) Unpack();
        return m_values;
    }
    NamedList<PropertyStoreChild>& Stores()
    {
        if (IsPacked()) Unpack();
        return m_stores;
    }

    // Adds the elements of a form to a body that nobody else sees.
    void Append(PackedForm form)
    {
        m_packed.push_back(std::move(form));
        m_isPacked.store(true, std::memory_order_relaxed);
    }

private:
    friend class PropertyStoreRef;
    static void Free(PropertyStoreBody* body);

    bool IsPacked() const { return m_isPacked.load(std::memory_order_acquire); }
    void Unpack();

    bool IsShared() const { return m_shares.load(std::memory_order_acquire) != 1; }
    void Share()
    {
        if (OnlyThread())
            m_shares.store(m_shares.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        else
            m_shares.fetch_add(1, std::memory_order_relaxed);
    }
    // True for the last share.
    bool Unshare()
    {
        if (!IsShared()) return true;
        if (!OnlyThread()) return m_shares.fetch_sub(1, std::memory_order_acq_rel) == 1;
        m_shares.store(m_shares.load(std::memory_order_relaxed) - 1, std::memory_order_relaxed);
        return false;
    }

    std::atomic<int> m_shares = 1;
    std::atomic<bool> m_isPacked = false; // beside the lists, which are looked at next
    NamedList<PropertyStoreChild> m_stores;
    NamedList<PropertyStoreEntry> m_values;
    std::vector<PackedForm> m_packed; // what follows in the lists
};

inline PropertyStoreRef::PropertyStoreRef(const PropertyStoreRef& other) noexcept : m_body(other.m_body)
{
    if (m_body) m_body->Share();
}

inline PropertyStoreRef PropertyStoreRef::ShareOf(PropertyStoreBody& body) noexcept
{
    body.Share();
    return PropertyStoreRef(&body);
}

inline PropertyStoreRef::~PropertyStoreRef()
{
    if (m_body && m_body->Unshare()) PropertyStoreBody::Free(m_body);
}

} // namespace corekit::detail
