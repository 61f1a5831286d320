// How SharedText keeps its buffer: the bodies of making, sharing, copying and assigning. See
// SharedTextImpl.h.
#pragma once

#include "corekit/foundation/SharedText.h"

#include <algorithm>

namespace corekit::detail {

// --- buffers

template <class Self, class Ch>
SharedText<Self, Ch>::SharedText(Ch ch, int n) : SharedText()
{
    AllocBuffer(n);
    std::fill_n(m_pchData, std::max(n, 0), ch);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::CopyOfLocked(const SharedText& other)
{
    Init();
    AssignCopy(other.GetLength(), other.m_pchData);
}

// Of the empty buffer nothing is ever written, although the store would change nothing: threads share it.
template <class Self, class Ch>
void SharedText<Self, Ch>::SetLength(int n)
{
    if (IsEmptyBuffer()) return;
    Data* data = GetData();
    data->nDataLength = std::clamp<int>(n, 0, data->nAllocLength);
    m_pchData[data->nDataLength] = Ch{};
}

// Keeps a buffer alive until the text that may lie in it has been copied.
template <class Self, class Ch>
struct SharedText<Self, Ch>::Hold {
    Data* data;
    explicit Hold(Data* held) : data(held) {}
    ~Hold() { Release(data); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
};

template <class Self, class Ch>
void SharedText<Self, Ch>::AllocBeforeWrite(int n)
{
    if (IsOwnWithRoom(n)) return;
    Release();
    AllocBuffer(n);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::CopyShared()
{
    Data* const old = GetData();
    const int length = old->nDataLength;
    AllocBuffer(length);
    std::memcpy(m_pchData, old->data(), static_cast<std::size_t>(length) * sizeof(Ch));
    Release(old);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::AllocCopy(Self& dest, int copyLen, int copyIndex, int extraLen) const
{
    const int length = countedLength(static_cast<std::size_t>(std::max(copyLen, 0)) +
                                     static_cast<std::size_t>(std::max(extraLen, 0)));
    if (length == 0) {
        dest.Init();
        return;
    }
    dest.AllocBuffer(length);
    const int from = std::clamp<int>(copyIndex, 0, GetAllocLength());
    std::copy_n(m_pchData + from, std::clamp(copyLen, 0, GetAllocLength() - from), dest.m_pchData);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::ConcatCopy(int n1, const Ch* p1, int n2, const Ch* p2)
{
    n1 = std::max(n1, 0);
    n2 = std::max(n2, 0);
    const int length = countedLength(static_cast<std::size_t>(n1) + static_cast<std::size_t>(n2));
    if (length == 0) return;
    AllocBuffer(length);
    std::copy_n(p1, n1, m_pchData);
    std::copy_n(p2, n2, m_pchData + n1);
}

template <class Self, class Ch>
Self SharedText<Self, Ch>::Joined(int n1, const Ch* p1, int n2, const Ch* p2)
{
    Self joined;
    static_cast<SharedText&>(joined).ConcatCopy(n1, p1, n2, p2);
    return joined;
}

template <class Self, class Ch>
void SharedText<Self, Ch>::ConcatInPlace(int n, const Ch* p)
{
    n = std::max(n, 0);
    const int length = GetLength();
    if (IsOwnWithRoom(LONGLONG{length} + n)) {
        if (n) std::memmove(m_pchData + length, p, static_cast<std::size_t>(n) * sizeof(Ch));
        SetLength(length + n);
        return;
    }
    Data* old = GetData();
    ConcatCopy(length, old->data(), n, p);
    if (GetData() != old) Release(old);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::AssignCopy(int n, const Ch* p)
{
    n = std::max(n, 0);
    const auto bytes = static_cast<std::size_t>(n) * sizeof(Ch);
    if (IsOwnWithRoom(n)) {
        if (n) std::memmove(m_pchData, p, bytes);
        SetLength(n);
        return;
    }
    const Hold old(GetData()); // the text may lie in it
    Init();
    AllocBuffer(n);
    std::memcpy(m_pchData, p, bytes);
}

template <class Self, class Ch>
SharedText<Self, Ch>& SharedText<Self, Ch>::operator=(const SharedText& other)
{
    if (m_pchData == other.m_pchData) return *this;
    if (IsLocked() || other.IsLocked()) {
        AssignCopy(other.GetLength(), other.m_pchData);
        return *this;
    }
    if (!other.IsEmptyBuffer()) InterlockedIncrement(&other.GetData()->nRefs);
    Release(GetData());
    m_pchData = other.m_pchData;
    return *this;
}

template <class Self, class Ch>
SharedText<Self, Ch>& SharedText<Self, Ch>::operator=(SharedText&& other)
{
    if (IsLocked() || other.IsLocked()) return *this = static_cast<const SharedText&>(other);
    std::swap(m_pchData, other.m_pchData);
    if (this != &other) other.Release();
    return *this;
}

template <class Self, class Ch>
Ch* SharedText<Self, Ch>::GetBuffer(int n)
{
    if (IsOwnWithRoom(n)) return m_pchData;
    Data* old = GetData();
    const int length = old->nDataLength;
    AllocBuffer(std::max(n, length));
    std::copy_n(old->data(), length, m_pchData);
    SetLength(length);
    Release(old);
    return m_pchData;
}

template <class Self, class Ch>
void SharedText<Self, Ch>::ReleaseBuffer(int n)
{
    CopyBeforeWrite();
    SetLength(n == -1 ? textLength(m_pchData, GetAllocLength()) : n);
}

template <class Self, class Ch>
Ch* SharedText<Self, Ch>::GetBufferSetLength(int n)
{
    GetBuffer(n);
    SetLength(n);
    return m_pchData;
}

template <class Self, class Ch>
void SharedText<Self, Ch>::FreeExtra()
{
    Data* old = GetData();
    const int length = old->nDataLength;
    if (length == old->nAllocLength) return;
    AllocBuffer(length);
    std::copy_n(old->data(), length, m_pchData);
    Release(old);
}

template <class Self, class Ch>
Ch* SharedText<Self, Ch>::LockBuffer()
{
    GetBuffer(0);
    if (!IsEmptyBuffer()) InterlockedExchange(&GetData()->nRefs, -1);
    return m_pchData;
}

template <class Self, class Ch>
void SharedText<Self, Ch>::UnlockBuffer()
{
    if (IsLocked()) InterlockedExchange(&GetData()->nRefs, 1);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::Clear()
{
    if (RefsOf(GetData()) < 0) {
        SetLength(0);
    } else {
        Release();
    }
}

} // namespace corekit::detail
