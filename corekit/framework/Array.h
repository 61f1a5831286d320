// Growing arrays.
//
// CArray<TYPE, ARG_TYPE> holds TYPE and takes new values as ARG_TYPE, which TYPE must be assignable from.
// New elements are value-initialised: numbers are 0, objects default-constructed. Growth is exact and
// small: past the capacity it is raised by the grow step, or to the new size if that is more; with no step
// set the step is an eighth of the present size, at least 4 and at most 1024 elements.
//
// Loops over every element are fastest on GetData and GetSize, which skip the test of the index.
//
// Indices: an element outside the array reads as a fresh TYPE, a write to it is lost, and a removal is cut
// to what is there. Sizes that cannot be had throw the memory exception and leave the array as it was. An
// argument may be an element of the array itself. One thread at a time.
#pragma once

#include "corekit/framework/Exception.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
public:
    CArray() = default; // empty; allocates nothing until the first element comes
    // Destroys the elements, frees the store; what pointers among them point at stays.
    ~CArray() override { Reset(); }

    int GetSize() const noexcept { return m_nSize; }  // elements in use
    int GetCount() const noexcept { return m_nSize; } // the same
    bool IsEmpty() const noexcept { return m_nSize == 0; }
    int GetUpperBound() const noexcept { return m_nSize - 1; } // -1 for an empty array

    // A negative size counts as 0, which frees the store. `growBy` of -1 leaves the step, 0 is the rule
    // above.
    void SetSize(int newSize, int growBy = -1)
    {
        if (growBy >= 0) m_nGrowBy = growBy;
        if (newSize <= 0) return Reset();
        if (newSize > m_nMaxSize) Reallocate(GrownCapacity(newSize));
        if (newSize > m_nSize)
            Construct(m_pData + m_nSize, m_pData + newSize);
        else
            std::destroy(m_pData + newSize, m_pData + m_nSize);
        m_nSize = newSize;
    }
    void RemoveAll() { SetSize(0); } // destroys all and frees the store
    void FreeExtra()                 // gives back what is reserved beyond the size; elements may move
    {
        if (m_nSize == 0) return Reset();
        if (m_nSize != m_nMaxSize) Reallocate(m_nSize);
    }

    // A reference is good until the array grows, shrinks or goes. One for an index outside belongs to the
    // calling thread and is cleared by the next such access.
    const TYPE& operator[](int index) const { return Inside(index) ? m_pData[index] : Spare(); }
    TYPE& operator[](int index) { return Inside(index) ? m_pData[index] : Spare(); }
    const TYPE& GetAt(int index) const { return (*this)[index]; } // as operator[], like the next two
    const TYPE& ElementAt(int index) const { return (*this)[index]; }
    TYPE& ElementAt(int index) { return (*this)[index]; }
    // Assigns; never grows.
    void SetAt(int index, ARG_TYPE element)
    {
        if (Inside(index)) m_pData[index] = element;
    }
    // Null while the array has no store.
    TYPE* GetData() noexcept { return m_pData; }
    const TYPE* GetData() const noexcept { return m_pData; }

    // The index of the new element. At the end; amortised by the growth step, linear in the size when the
    // store moves.
    int Add(ARG_TYPE element)
    {
        const int index = m_nSize;
        SetAtGrow(index, element);
        return index;
    }
    // Assigns, and grows the array up to the index where it lies behind the end; what comes in between is
    // new. Below 0 nothing happens.
    void SetAtGrow(int index, ARG_TYPE element)
    {
        if (index < 0) return;
        if (index < m_nSize) { // there is such an element
            m_pData[index] = element;
        } else if (index == m_nSize && index < m_nMaxSize) { // the next one, and there is room
            TYPE* added = std::construct_at(m_pData + m_nSize);
            ++m_nSize;
            *added = element;
        } else if (index < m_nMaxSize) { // further on, in the room there is
            SetSize(index + 1);
            m_pData[index] = element;
        } else {
            if (index == INT_MAX) AfxThrowMemoryException();
            TYPE copy = TYPE();
            copy = element; // it may live in the store that is about to move
            SetSize(index + 1);
            m_pData[index] = std::move(copy);
        }
    }
    // The index of the first appended element. Copies all of `source`, which may be this array.
    int Append(const CArray& source)
    {
        const int first = m_nSize, count = source.m_nSize;
        if (count > INT_MAX - first) AfxThrowMemoryException();
        if (count) SetSize(first + count);
        std::copy_n(source.m_pData, count, m_pData + first);
        return first;
    }
    // Makes the size and every element equal; the growth step stays.
    void Copy(const CArray& source)
    {
        if (this == &source) return; // as it is
        SetSize(source.m_nSize);
        std::copy_n(source.m_pData, source.m_nSize, m_pData);
    }

    // An index past the end grows the array up to it. `count` copies in front of the element at `index`;
    // below 0, and for no copies, nothing happens.
    void InsertAt(int index, ARG_TYPE element, int count = 1)
    {
        if (index < 0 || count <= 0) return;
        TYPE copy = TYPE();
        copy = element;
        OpenGap(index, count);
        std::fill_n(m_pData + index, count, copy);
    }
    // All of `source`, which may be this array, in front of the element at `index`; null inserts nothing.
    void InsertAt(int index, const CArray* source)
    {
        if (index < 0 || !source || source->m_nSize == 0) return;
        CArray copy;
        copy.Copy(*source);
        OpenGap(index, copy.m_nSize); // throws before anything has moved
        std::move(copy.m_pData, copy.m_pData + copy.m_nSize, m_pData + index);
    }
    // Moves what lies behind to the front; the capacity stays.
    void RemoveAt(int index, int count = 1)
    {
        if (!Inside(index) || count <= 0) return; // nothing is there
        count = std::min(count, m_nSize - index); // as many as there are
        std::move(m_pData + index + count, m_pData + m_nSize, m_pData + index);
        std::destroy(m_pData + m_nSize - count, m_pData + m_nSize);
        m_nSize -= count;
    }

private:
    static_assert(alignof(TYPE) <= alignof(std::max_align_t));

    bool Inside(int index) const noexcept
    {
        return static_cast<unsigned>(index) < static_cast<unsigned>(m_nSize);
    }

    // What an index outside stands for; fresh at every use.
    [[gnu::cold, gnu::noinline]] static TYPE& Spare()
    {
        static thread_local TYPE spare; // one for each type and thread
        spare = TYPE();
        return spare;
    }

    // Makes value-initialised elements in raw store.
    static void Construct(TYPE* first, TYPE* last)
    {
        if constexpr (std::is_scalar_v<TYPE> && !std::is_member_pointer_v<TYPE>)
            std::memset(static_cast<void*>(first), 0, static_cast<std::size_t>(last - first) * sizeof(TYPE));
        else
            std::uninitialized_value_construct(first, last);
    }

    int GrownCapacity(int newSize) const
    {
        const int step = m_nGrowBy > 0 ? m_nGrowBy : std::clamp(m_nSize / 8, 4, 1024);
        return std::max(newSize, step > INT_MAX - m_nMaxSize ? INT_MAX : m_nMaxSize + step);
    }

    // Moves the elements to a store of that size; trivially copyable ones as a block. Throws the memory
    // exception and leaves all as it was.
    void Reallocate(int capacity)
    {
        if (static_cast<std::size_t>(capacity) > PTRDIFF_MAX / sizeof(TYPE)) AfxThrowMemoryException();
        const std::size_t bytes = static_cast<std::size_t>(capacity) * sizeof(TYPE);
        if constexpr (std::is_trivially_copyable_v<TYPE>) {
            void* store = std::realloc(static_cast<void*>(m_pData), bytes); // often in place
            if (!store) AfxThrowMemoryException();
            m_pData = static_cast<TYPE*>(store);
        } else {
            TYPE* store = static_cast<TYPE*>(std::malloc(bytes));
            if (!store) AfxThrowMemoryException();
            std::uninitialized_move(m_pData, m_pData + m_nSize, store);
            std::destroy_n(m_pData, m_nSize);
            std::free(static_cast<void*>(m_pData));
            m_pData = store;
        }
        m_nMaxSize = capacity;
    }

    // Moves the elements from `index` on by `count` places; the gap holds values to be overwritten.
    void OpenGap(int index, int count)
    {
        const int oldSize = m_nSize;
        if (count > INT_MAX - std::max(index, oldSize)) AfxThrowMemoryException();
        SetSize(std::max(index, oldSize) + count); // new ones at the end
        if (index < oldSize)
            std::move_backward(m_pData + index, m_pData + oldSize, m_pData + oldSize + count);
    }

    void Reset() noexcept
    {
        std::destroy_n(m_pData, m_nSize);
        std::free(static_cast<void*>(m_pData));
        m_pData = nullptr;
        m_nSize = m_nMaxSize = 0;
    }

    TYPE* m_pData = nullptr;
    int m_nSize = 0;    // in use
    int m_nMaxSize = 0; // allocated
    int m_nGrowBy = 0;  // 0: the rule above
};

// Arrays of common types, with a run-time class each.
class COREKIT_API CByteArray : public CArray<BYTE, BYTE> { // bytes
    DECLARE_DYNAMIC(CByteArray)
};
class COREKIT_API CWordArray : public CArray<WORD, WORD> { // 16 bits, unsigned
    DECLARE_DYNAMIC(CWordArray)
};
class COREKIT_API CDWordArray : public CArray<DWORD, DWORD> { // 32 bits, unsigned
    DECLARE_DYNAMIC(CDWordArray)
};
// Owns none of what its pointers point at.
class COREKIT_API CPtrArray : public CArray<void*, void*> {
    DECLARE_DYNAMIC(CPtrArray)
};
class COREKIT_API CObArray : public CArray<CObject*, CObject*> {
    DECLARE_DYNAMIC(CObArray)
};
class COREKIT_API CStringArray : public CArray<CString, const CString&> { // copies share the texts
    DECLARE_DYNAMIC(CStringArray)
};
