// Hash maps with a fixed number of buckets.
//
// CMap<KEY, ARG_KEY, VALUE, ARG_VALUE> holds KEY and VALUE and takes them as the ARG types. The number of
// buckets is 17 unless InitHashTable sets it before the first element goes in; it never changes by itself.
// Elements live in blocks of `blockSize` and do not move, so a reference stays good until its key is removed.
// A walk goes bucket by bucket, in each the newest element first; the element just returned may be removed
// during it, others not. A key type that is no number or pointer brings its own HashKey. One thread at a
// time.
#pragma once

#include "corekit/framework/Exception.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"

#include <algorithm>
#include <memory>
#include <type_traits>
#include <vector>

// Numbers and pointers, shifted by 4; texts, by characters.
template <class ARG_KEY>
UINT HashKey(ARG_KEY key)
{
    using Plain = std::remove_cvref_t<ARG_KEY>;
    if constexpr (std::is_pointer_v<Plain>)
        return static_cast<UINT>(reinterpret_cast<UINT_PTR>(key) >> 4);
    else
        return static_cast<UINT>(static_cast<UINT_PTR>(key) >> 4);
}
template <>
inline UINT HashKey<const char*>(const char* key)
{
    UINT hash = 0;
    for (; key && *key; ++key) hash = hash * 33 + static_cast<BYTE>(*key);
    return hash;
}
template <>
inline UINT HashKey<const CString&>(const CString& key)
{
    return HashKey<const char*>(key.GetString());
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject {
public:
    explicit CMap(int blockSize = 10) : m_blockSize(std::clamp(blockSize, 1, 4096)) {}
    ~CMap() override = default;

    int GetCount() const noexcept { return m_count; }
    int GetSize() const noexcept { return m_count; }
    bool IsEmpty() const noexcept { return m_count == 0; }

    UINT GetHashTableSize() const noexcept { return m_bucketCount; }
    // Only while the map is empty; 0 counts as 1, and what is too big throws the memory exception.
    void InitHashTable(UINT bucketCount, BOOL bAllocNow = TRUE)
    {
        if (m_count) return;
        m_buckets = {};
        m_bucketCount = std::max(bucketCount, 1u);
        if (bAllocNow) AllocateBuckets();
    }

    bool Lookup(ARG_KEY key, VALUE& value) const
    {
        const Association* found = Find(key, Hash(key));
        if (found) value = found->value;
        return found != nullptr;
    }
    // Makes the element if there is none.
    VALUE& operator[](ARG_KEY key)
    {
        const UINT hash = Hash(key);
        if (Association* found = Find(key, hash)) return found->value;
        if (m_buckets.empty()) AllocateBuckets();
        if (!m_free) AllocateBlock();
        Association* made = m_free;
        made->key = key;
        m_free = made->next;
        made->hash = hash;
        made->next = m_buckets[hash % m_bucketCount];
        m_buckets[hash % m_bucketCount] = made;
        ++m_count;
        return made->value;
    }
    void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }

    bool RemoveKey(ARG_KEY key)
    {
        if (m_count == 0) return false;
        const UINT hash = Hash(key);
        for (Association** link = &m_buckets[hash % m_bucketCount]; *link; link = &(*link)->next) {
            Association* found = *link;
            if (found->hash != hash || !(found->key == key)) continue;
            *link = found->next;
            found->key = KEY();
            found->value = VALUE();
            found->next = m_free;
            m_free = found;
            --m_count;
            return true;
        }
        return false;
    }
    void RemoveAll()
    {
        m_buckets = {};
        m_blocks.clear();
        m_free = nullptr;
        m_count = 0;
    }

    // A walk: start, then GetNextAssoc while the position is not null. A null position gives nothing.
    POSITION GetStartPosition() const { return ToPosition(m_count ? FirstFrom(0) : nullptr); }
    void GetNextAssoc(POSITION& position, KEY& key, VALUE& value) const
    {
        if (!position) return;
        const Association* here = reinterpret_cast<const Association*>(position);
        key = here->key;
        value = here->value;
        position = ToPosition(here->next ? here->next : FirstFrom(here->hash % m_bucketCount + 1));
    }

private:
    struct Association {
        Association* next = nullptr;
        UINT hash = 0;
        KEY key = KEY();
        VALUE value = VALUE();
    };

    static UINT Hash(ARG_KEY key) { return HashKey<ARG_KEY>(key); }
    static POSITION ToPosition(Association* association) { return reinterpret_cast<POSITION>(association); }

    Association* Find(ARG_KEY key, UINT hash) const
    {
        if (m_count == 0) return nullptr;
        Association* at = m_buckets[hash % m_bucketCount];
        while (at && (at->hash != hash || !(at->key == key))) at = at->next;
        return at;
    }
    Association* FirstFrom(UINT bucket) const
    {
        const auto found =
            std::find_if(m_buckets.begin() + bucket, m_buckets.end(), [](auto* chain) { return chain; });
        return found == m_buckets.end() ? nullptr : *found;
    }
    void AllocateBuckets()
    {
        OrMemoryException([this] { m_buckets.assign(m_bucketCount, nullptr); });
    }
    void AllocateBlock()
    {
        const auto size = static_cast<std::size_t>(m_blockSize);
        OrMemoryException([&] { m_blocks.push_back(std::make_unique<Association[]>(size)); });
        for (std::size_t i = size; i-- > 0;) {
            m_blocks.back()[i].next = m_free;
            m_free = &m_blocks.back()[i];
        }
    }
    template <class Step>
    static void OrMemoryException(Step step)
    {
        try {
            step();
        } catch (const std::exception&) {
            AfxThrowMemoryException();
        }
    }

    std::vector<Association*> m_buckets;
    std::vector<std::unique_ptr<Association[]>> m_blocks;
    Association* m_free = nullptr;
    UINT m_bucketCount = 17;
    int m_blockSize;
    int m_count = 0;
};

// Owns none of the objects that it points at.
class COREKIT_API CMapStringToOb : public CMap<CString, const char*, CObject*, CObject*> {
    DECLARE_DYNAMIC(CMapStringToOb)
public:
    using CMap::CMap;
};
class COREKIT_API CMapWordToPtr : public CMap<WORD, WORD, void*, void*> {
    DECLARE_DYNAMIC(CMapWordToPtr)
public:
    using CMap::CMap;
};
