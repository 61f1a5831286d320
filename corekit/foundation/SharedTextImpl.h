// The bodies of SharedText. Included by StringA.cpp and StringW.cpp alone, which instantiate them.
#pragma once

#include "corekit/foundation/SharedTextBufferImpl.h"
#include "corekit/foundation/TextClass.h"
#include "corekit/framework/String.h"
#include "corekit/framework/TextFormat.h"

#include <algorithm>

namespace corekit::detail {

template <class Self, class Ch>
int SharedText<Self, Ch>::CompareNoCase(const Ch* p) const
{
    return compareFolded(m_pchData, p);
}

template <class Self, class Ch>
int SharedText<Self, Ch>::Collate(const Ch* p) const
{
    return compareCollated(m_pchData, p);
}

template <class Self, class Ch>
int SharedText<Self, Ch>::Find(Ch ch, int start) const
{
    const int length = GetLength();
    if (start < 0 || start > length) return -1;
    const Ch* from = m_pchData + start;
    const int at = ch == Ch{} ? textLength(from, length - start) : findInText(from, length - start, ch);
    return at < 0 ? -1 : start + at;
}

template <class Self, class Ch>
int SharedText<Self, Ch>::Find(const Ch* text, int start) const
{
    const int length = GetLength();
    if (!text || start < 0 || start > length) return -1;
    const int at = findInText(m_pchData + start, length - start, text);
    return at < 0 ? -1 : start + at;
}

template <class Self, class Ch>
int SharedText<Self, Ch>::FindOneOf(const Ch* set) const
{
    const int at = countOutside(m_pchData, set);
    return m_pchData[at] ? at : -1;
}

template <class Self, class Ch>
int SharedText<Self, Ch>::ReverseFind(Ch ch) const
{
    const auto wanted = static_cast<Ch>(static_cast<BYTE>(ch));
    for (int i = textLength(m_pchData, GetLength()); i >= 0; --i) {
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
    return Left(countInside(m_pchData, set));
}

template <class Self, class Ch>
Self SharedText<Self, Ch>::SpanExcluding(const Ch* set) const
{
    return Left(countOutside(m_pchData, set));
}

template <class Self, class Ch>
void SharedText<Self, Ch>::MakeUpper()
{
    CopyBeforeWrite();
    if (!IsEmptyBuffer()) upperInPlace(m_pchData);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::MakeLower()
{
    CopyBeforeWrite();
    if (!IsEmptyBuffer()) lowerInPlace(m_pchData);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::MakeReverse()
{
    CopyBeforeWrite();
    std::reverse(m_pchData, m_pchData + textLength(m_pchData, GetLength()));
}

template <class Self, class Ch>
void SharedText<Self, Ch>::TrimRight()
{
    CopyBeforeWrite();
    const int end = textLength(m_pchData, GetLength());
    int keep = end;
    while (keep > 0 && isWhiteSpace(m_pchData[keep - 1])) --keep;
    if (keep < end) SetLength(keep);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::TrimLeft()
{
    CopyBeforeWrite();
    int skip = 0;
    while (isWhiteSpace(m_pchData[skip])) ++skip;
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

// Most texts are short: these are written aside, and no second time.
template <class Self, class Ch>
void SharedText<Self, Ch>::FormatFrom(const Ch* format, const FormatSource& source)
{
    constexpr int aside = 256;
    Ch text[aside];
    BufferRange<Ch> own;
    if (!IsEmptyBuffer()) own = {m_pchData, m_pchData + GetAllocLength()};
    const FormatResult result = writeFormat({text, text + aside}, format, source, own);
    if (result.readsOwn) {
        Self apart;
        apart.FormatFrom(format, source);
        *this = static_cast<const SharedText&>(apart);
        return;
    }
    Ch* const to = GetBuffer(std::max(result.room, result.length));
    if (result.length <= aside) {
        std::copy_n(text, result.length, to);
    } else {
        writeFormat({to, to + GetAllocLength()}, format, source);
    }
    SetLength(result.length);
    if (result.hasCharacter) ReleaseBuffer(-1);
}

template <class Self, class Ch>
void SharedText<Self, Ch>::FormatV(const Ch* format, va_list args)
{
    FormatFrom(format, FormatSource(args));
}

template <class Self, class Ch>
void SharedText<Self, Ch>::FormatList(const Ch* format, FormatArguments args)
{
    FormatFrom(format, FormatSource(args));
}

} // namespace corekit::detail
