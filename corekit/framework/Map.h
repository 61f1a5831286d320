// Hash maps with a fixed number of buckets.
//
// CMap<KEY, ARG_KEY, VALUE, ARG_VALUE> holds KEY and VALUE and takes them as the ARG types. The number of
// buckets is 17 unless InitHashTable sets it before the first element goes in; it never changes by itself.
// Elements live in blocks of `blockSize` and do not move, so a reference stays good until its key is removed.
// A walk goes bucket by bucket, in each the newest element first; the element just returned may be removed
// during it, others not. A key type that is no number or pointer brings its own HashKey. One thread at a
// time.
//
// A map costs no allocation until the first element goes in. Removed elements keep their place in the block
// for new ones; RemoveAll alone gives memory back. With `n` elements in `b` buckets a lookup compares n / b
// keys on the average, so size the table for what will be in it.
//
//     CMap<int, int, CString, const char*> names;
//     names.InitHashTable(1009);
//     names.SetAt(7, "seven");
//     CString found;
//     if (names.Lookup(7, found)) ...
//     int key;
//     for (POSITION at = names.GetStartPosition(); at;) {
//         names.GetNextAssoc(at, key, found);
//         ...
//     }
#pragma once

#include "corekit/framework/Exception.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"

#include <algorithm>
#include <memory>
#include <type_traits>
#include <vector>

// Numbers and pointers, shifted by 4; texts, by characters. A map calls this once an operation; equal keys
// must give equal numbers. Nothing but the spread over the buckets depends on it.
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
// Null counts as "".
inline UINT HashKey<const char*>(const char* key)
{
    UINT hash = 0;
    for (; key && *key; ++key) hash = hash * 33 + static_cast<BYTE>(*key);
    return hash;
}
template <>
// As its text, up to the first zero.
inline UINT HashKey<const CString&>(const CString& key)
{
    return HashKey<const char*>(key.GetString());
}

// Both types need a default, an assignment and, for the key, ==. Not copied.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject {
public:
    // So many elements are allocated at a time; held between 1 and 4096. Small blocks suit small maps;
    // larger ones save a step of allocation for each element.
    explicit CMap(int blockSize = 10) : m_blockSize(std::clamp(blockSize, 1, 4096)) {}
    ~CMap() override = default; // destroys keys and values; what pointers among them point at stays

    int GetCount() const noexcept { return m_count; } // elements
    int GetSize() const noexcept { return m_count; }  // the same
    bool IsEmpty() const noexcept { return m_count == 0; }

    // Buckets, whether or not they have been allocated.
    UINT GetHashTableSize() const noexcept { return m_bucketCount; }
    // Only while the map is empty; 0 counts as 1, and what is too big throws the memory exception. Without
    // `bAllocNow` the first element allocates them. A prime number spreads numbers best.
    void InitHashTable(UINT bucketCount, BOOL bAllocNow = TRUE)
    {
        if (m_count) return; // elements stand in their buckets
        m_buckets = {};
        m_bucketCount = std::max(bucketCount, 1u);
        if (bAllocNow) AllocateBuckets();
    }

    // Copies the value of the key. False, and `value` untouched, if there is no such key. Several threads
    // may look up at once while nobody changes the map.
    bool Lookup(ARG_KEY key, VALUE& value) const
    {
        const Association* found = Find(key, Hash(key));
        if (found) value = found->value;
        return found != nullptr;
    }
    // Makes the element if there is none. A new value is default-constructed. Throws the memory exception if
    // there is no memory for it, and the map is as it was. Constant time for a table of fitting size. The
    // reference is good until the key is removed.
    VALUE& operator[](ARG_KEY key)
    {
        const UINT hash = Hash(key);
        if (Association* found = Find(key, hash)) return found->value;
        if (m_buckets.empty()) AllocateBuckets();
        if (!m_free) AllocateBlock(); // may throw: nothing has changed yet
        Association* made = m_free;
        made->key = key; // may throw: the place is still free
        m_free = made->next;
        made->hash = hash;
        made->next = m_buckets[hash % m_bucketCount];
        m_buckets[hash % m_bucketCount] = made;
        ++m_count;
        return made->value;
    }
    // Adds the key or replaces its value. `value` may lie in the map.
    void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }

    // False if there is no such key. Key and value are cleared at once; their place serves the next new
    // element. References to other elements stay good.
    bool RemoveKey(ARG_KEY key)
    {
        if (m_count == 0) return false;
        const UINT hash = Hash(key);
        for (Association** link = &m_buckets[hash % m_bucketCount]; *link; link = &(*link)->next) {
            Association* found = *link;
            if (found->hash != hash || !(found->key == key)) continue;
            *link = found->next;
            found->key = KEY(); // lets go of what the key held
            found->value = VALUE();
            found->next = m_free; // the place serves the next new element
            m_free = found;
            --m_count;
            return true;
        }
        return false;
    }
    // Also frees all memory; the number of buckets stays. Positions and references end here.
    void RemoveAll()
    {
        m_buckets = {};
        m_blocks.clear(); // destroys all elements
        m_free = nullptr;
        m_count = 0;
    }

    // A walk: start, then GetNextAssoc while the position is not null. A null position gives nothing. Null
    // for an empty map.
    POSITION GetStartPosition() const { return ToPosition(m_count ? FirstFrom(0) : nullptr); }
    // Copies the element at the position and moves on; the position is null behind the last one. The map
    // does not change the order of a walk: it is that of the buckets, not of the keys or of insertion.
    void GetNextAssoc(POSITION& position, KEY& key, VALUE& value) const
    {
        if (!position) return; // key and value stay
        const Association* here = reinterpret_cast<const Association*>(position);
        key = here->key;
        value = here->value;
        position = ToPosition(here->next ? here->next : FirstFrom(here->hash % m_bucketCount + 1));
    }

private:
    // An element; in a free place only `next` counts. One allocation holds `blockSize` of them.
    struct Association {
        Association* next = nullptr;
        UINT hash = 0;
        KEY key = KEY();
        VALUE value = VALUE();
    };

    // By the specialisation for ARG_KEY, if there is one.
    static UINT Hash(ARG_KEY key) { return HashKey<ARG_KEY>(key); }
    // A position is the element's address. Not to be kept beyond the walk.
    static POSITION ToPosition(Association* association) { return reinterpret_cast<POSITION>(association); }

    // Null if there is no such key. The hash is compared before the key.
    Association* Find(ARG_KEY key, UINT hash) const
    {
        if (m_count == 0) return nullptr; // there may be no buckets yet
        Association* at = m_buckets[hash % m_bucketCount];
        while (at && (at->hash != hash || !(at->key == key))) at = at->next;
        return at;
    }
    // The newest element of the first bucket in use from there on, or null. A walk over an almost empty
    // table looks at every bucket.
    Association* FirstFrom(UINT bucket) const
    {
        const auto found =
            std::find_if(m_buckets.begin() + bucket, m_buckets.end(), [](auto* chain) { return chain; });
        return found == m_buckets.end() ? nullptr : *found;
    }
    // Throws the memory exception for a number that cannot be had.
    void AllocateBuckets()
    {
        OrMemoryException([this] { m_buckets.assign(m_bucketCount, nullptr); });
    }
    // Chains the places so that they are used in the order of their addresses. One allocation for each
    // block, none for each element.
    void AllocateBlock()
    {
        const auto size = static_cast<std::size_t>(m_blockSize);
        OrMemoryException([&] { m_blocks.push_back(std::make_unique<Association[]>(size)); });
        for (std::size_t i = size; i-- > 0;) {
            m_blocks.back()[i].next = m_free;
            m_free = &m_blocks.back()[i];
        }
    }
    // Wraps what the standard library throws.
    template <class Step>
    // Failure to allocate leaves as the memory exception.
    static void OrMemoryException(Step step)
    {
        try {
            step();
        } catch (const std::exception&) {
            AfxThrowMemoryException();
        }
    }

    std::vector<Association*> m_buckets;                  // empty until the first element, or InitHashTable
    std::vector<std::unique_ptr<Association[]>> m_blocks; // own all elements
    Association* m_free = nullptr;                        // chain of unused places
    UINT m_bucketCount = 17;                              // at least 1
    int m_blockSize;                                      // elements in a block
    int m_count = 0;
};

// Owns none of the objects that it points at. Keys are kept as copies and compared byte by byte, case
// included.
class COREKIT_API CMapStringToOb : public CMap<CString, const char*, CObject*, CObject*> {
    DECLARE_DYNAMIC(CMapStringToOb)
public:
    using CMap::CMap;
};
// Owns nothing that its values point at. For tables by number, as handlers of commands.
class COREKIT_API CMapWordToPtr : public CMap<WORD, WORD, void*, void*> {
    DECLARE_DYNAMIC(CMapWordToPtr)
public:
    using CMap::CMap;
};
