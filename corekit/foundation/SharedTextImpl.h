// The bodies of SharedText. Included by StringA.cpp and StringW.cpp alone, which instantiate them.
#pragma once

#include "corekit/foundation/SharedText.h"
#include "corekit/foundation/StringFormat.h"
#include "corekit/foundation/TextClass.h"
#include "corekit/framework/String.h"

#include <algorithm>
#include <functional>

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

template <class Self, class Ch>
bool SharedText<Self, Ch>::PointsInside(const void* p) const
{
    const std::less_equal<const void*> notAbove;
    return !IsEmptyBuffer() && notAbove(m_pchData, p) && notAbove(p, m_pchData + GetAllocLength());
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
void SharedText<Self, Ch>::CopyBeforeWrite()
{
    if (RefsOf(GetData()) < 2) return;
    const Hold old(GetData());
    const int length = GetLength();
    Init();
    AllocBuffer(length);
    std::copy_n(old.data->data(), length, m_pchData);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::AllocCopy(Self& dest, int copyLen, int copyIndex, int extraLen) const
{
    const int length = CountedLength(static_cast<std::size_t>(std::max(copyLen, 0)) +
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
    const int length = CountedLength(static_cast<std::size_t>(n1) + static_cast<std::size_t>(n2));
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
    if (!IsOwnWithRoom(n) && PointsInside(p)) {
        const Hold old(GetData());
        Init();
        AllocBuffer(n);
        std::copy_n(p, n, m_pchData);
        return;
    }
    AllocBeforeWrite(n);
    if (n) std::memmove(m_pchData, p, static_cast<std::size_t>(n) * sizeof(Ch));
    SetLength(n);
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
    SetLength(n == -1 ? TextLength(m_pchData, GetAllocLength()) : n);
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
    if (!IsEmptyBuffer()) InterlockedExchange(&GetData()->nRefs, 1);
}

// --- characters, searches, parts

template <class Self, class Ch>
void SharedText<Self, Ch>::SetAt(int index, Ch ch)
{
    CopyBeforeWrite();
    if (index >= 0 && index < GetAllocLength()) m_pchData[index] = ch;
}

template <class Self, class Ch>
void SharedText<Self, Ch>::Empty()
{
    if (RefsOf(GetData()) < 0) {
        SetLength(0);
    } else {
        Release();
    }
}

template <class Self, class Ch>
int SharedText<Self, Ch>::CompareNoCase(const Ch* p) const
{
    return CompareFolded(m_pchData, p);
}

template <class Self, class Ch>
int SharedText<Self, Ch>::Collate(const Ch* p) const
{
    return CompareCollated(m_pchData, p);
}

template <class Self, class Ch>
int SharedText<Self, Ch>::Find(Ch ch, int start) const
{
    const int length = GetLength();
    if (start < 0 || start > length) return -1;
    const Ch* from = m_pchData + start;
    const int at = ch == Ch{} ? TextLength(from, length - start) : FindInText(from, length - start, ch);
    return at < 0 ? -1 : start + at;
}

template <class Self, class Ch>
int SharedText<Self, Ch>::Find(const Ch* text, int start) const
{
    const int length = GetLength();
    if (!text || start < 0 || start > length) return -1;
    const int at = FindInText(m_pchData + start, length - start, text);
    return at < 0 ? -1 : start + at;
}

template <class Self, class Ch>
int SharedText<Self, Ch>::FindOneOf(const Ch* set) const
{
    const int at = CountOutside(m_pchData, set);
    return m_pchData[at] ? at : -1;
}

template <class Self, class Ch>
int SharedText<Self, Ch>::ReverseFind(Ch ch) const
{
    const auto wanted = static_cast<Ch>(static_cast<BYTE>(ch));
    for (int i = TextLength(m_pchData, GetLength()); i >= 0; --i) {
        if (m_pchData[i] == wanted) return i;
    }
    return -1;
}

template <class Self, class Ch>
Self SharedText<Self, Ch>::Left(int n) const
{
    return Mid(0, n);
}

template <class Self, class Ch>
Self SharedText<Self, Ch>::Right(int n) const
{
    n = std::clamp(n, 0, GetLength());
    return Mid(GetLength() - n, n);
}

template <class Self, class Ch>
Self SharedText<Self, Ch>::Mid(int first, int n) const
{
    first = std::clamp(first, 0, GetLength());
    n = std::clamp(n, 0, GetLength() - first);
    return Self(m_pchData + first, n);
}

template <class Self, class Ch>
Self SharedText<Self, Ch>::SpanIncluding(const Ch* set) const
{
    return Left(CountInside(m_pchData, set));
}

template <class Self, class Ch>
Self SharedText<Self, Ch>::SpanExcluding(const Ch* set) const
{
    return Left(CountOutside(m_pchData, set));
}

template <class Self, class Ch>
void SharedText<Self, Ch>::MakeUpper()
{
    CopyBeforeWrite();
    if (!IsEmptyBuffer()) UpperInPlace(m_pchData);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::MakeLower()
{
    CopyBeforeWrite();
    if (!IsEmptyBuffer()) LowerInPlace(m_pchData);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::MakeReverse()
{
    CopyBeforeWrite();
    std::reverse(m_pchData, m_pchData + TextLength(m_pchData, GetLength()));
}

template <class Self, class Ch>
void SharedText<Self, Ch>::TrimRight()
{
    CopyBeforeWrite();
    const int end = TextLength(m_pchData, GetLength());
    int keep = end;
    while (keep > 0 && IsSpace(m_pchData[keep - 1])) --keep;
    if (keep < end) SetLength(keep);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::TrimLeft()
{
    CopyBeforeWrite();
    int skip = 0;
    while (IsSpace(m_pchData[skip])) ++skip;
    const int keep = GetLength() - skip;
    std::memmove(m_pchData, m_pchData + skip, static_cast<std::size_t>(keep) * sizeof(Ch));
    SetLength(keep);
}

// --- formats

template <class Self, class Ch>
BOOL SharedText<Self, Ch>::LoadStringA(UINT id)
{
    CString text;
    text.LoadString(id);
    static_cast<Self&>(*this) = static_cast<const char*>(text);
    return TRUE;
}

template <class Self, class Ch>
void SharedText<Self, Ch>::FormatV(const Ch* format, va_list args)
{
    BufferRange<Ch> own;
    if (!IsEmptyBuffer()) own = {m_pchData, m_pchData + GetAllocLength()};
    const FormatRoom room = MeasureFormat(format, args, own);
    if (room.readsBuffer) {
        Self apart;
        apart.FormatV(format, args);
        *this = static_cast<const SharedText&>(apart);
        return;
    }
    for (int capacity = room.bound;;) {
        Ch* buffer = GetBuffer(capacity);
        const int needed = WriteFormat({buffer, buffer + GetAllocLength()}, format, args);
        SetLength(std::min<int>(needed, GetAllocLength()));
        if (needed <= GetAllocLength()) break;
        capacity = needed;
    }
    ReleaseBuffer(-1);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::Format(const Ch* format, ...)
{
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::Format(UINT id, ...)
{
    Self format;
    format.LoadStringA(id);
    va_list args;
    va_start(args, id);
    FormatV(format, args);
    va_end(args);
}

} // namespace corekit::detail
