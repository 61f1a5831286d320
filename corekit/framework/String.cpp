#include "corekit/framework/String.h"

#include "corekit/framework/Exception.h"
#include "corekit/platform/Runtime.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

// Lies directly in front of the characters. The shared empty block has a count of -1 and is never freed.
struct CString::Block {
    std::atomic<int> refs;
    int length;
    int capacity;
};

namespace {
std::string_view view(const char* text) { return text ? std::string_view(text) : std::string_view(); }

int lengthOf(std::string_view text)
{
    if (text.size() > INT_MAX) AfxThrowMemoryException();
    return static_cast<int>(text.size());
}

int indexOf(std::size_t position)
{
    return position == std::string_view::npos ? -1 : static_cast<int>(position);
}
} // namespace

char* CString::EmptyText() noexcept
{
    struct Empty {
        Block block;
        char terminator;
    };
    static constinit Empty empty{{-1, 0, 0}, 0};
    static_assert(offsetof(Empty, terminator) == sizeof(Block));
    return &empty.terminator;
}

CString::Block* CString::Header() const noexcept
{
    return std::launder(reinterpret_cast<Block*>(m_text)) - 1;
}
bool CString::Shared() const noexcept { return Header()->refs.load(std::memory_order_acquire) != 1; }
int CString::GetLength() const noexcept { return Header()->length; }

void CString::Release() noexcept
{
    Block* block = Header();
    m_text = EmptyText();
    if (block->refs.load(std::memory_order_relaxed) < 0) return;
    if (block->refs.fetch_sub(1, std::memory_order_acq_rel) == 1) std::free(block);
}

char* CString::Reserve(LONGLONG capacity, bool exact)
{
    Block* old = Header();
    capacity = std::max<LONGLONG>(capacity, old->length);
    if (!Shared() && capacity <= old->capacity) return m_text;
    if (!exact) capacity = std::max(capacity, std::min<LONGLONG>(old->length * 3LL / 2, INT_MAX));
    const LONGLONG bytes = static_cast<LONGLONG>(sizeof(Block)) + capacity + 1;
    void* memory = capacity < INT_MAX ? std::malloc(static_cast<std::size_t>(bytes)) : nullptr;
    if (!memory) AfxThrowMemoryException();
    Block* block = new (memory) Block{1, old->length, static_cast<int>(capacity)};
    char* text = reinterpret_cast<char*>(block + 1);
    std::memcpy(text, m_text, static_cast<std::size_t>(old->length) + 1);
    Release();
    return m_text = text;
}

void CString::SetLength(int length) noexcept
{
    Header()->length = length;
    m_text[length] = 0;
}

void CString::Assign(const char* text, int length)
{
    if (length <= 0) return Empty();
    const CString held(*this); // `text` may lie in this string's block
    Empty();
    std::memcpy(Reserve(length, true), text, static_cast<std::size_t>(length));
    SetLength(length);
}

CString::CString(const CString& other) noexcept : m_text(other.m_text)
{
    Block* block = Header();
    if (block->refs.load(std::memory_order_relaxed) > 0) block->refs.fetch_add(1, std::memory_order_relaxed);
}

CString::CString(const char* text) : CString() { Assign(text, lengthOf(view(text))); }
CString::CString(const unsigned char* text) : CString(reinterpret_cast<const char*>(text)) {}
CString::CString(const char* text, int length) : CString() { Assign(text, text ? length : 0); }
CString::CString(char ch, int count) : CString()
{
    if (count <= 0) return;
    std::memset(Reserve(count, true), ch, static_cast<std::size_t>(count));
    SetLength(count);
}

CString& CString::operator=(const CString& other) noexcept { return *this = CString(other); }
CString& CString::operator=(CString&& other) noexcept
{
    std::swap(m_text, other.m_text);
    return *this;
}
CString& CString::operator=(const char* text)
{
    Assign(text, lengthOf(view(text)));
    return *this;
}
CString& CString::operator=(char ch)
{
    Assign(&ch, 1);
    return *this;
}

void CString::Empty() noexcept { Release(); }

char CString::GetAt(int index) const noexcept
{
    return index >= 0 && index < GetLength() ? m_text[index] : 0;
}
void CString::SetAt(int index, char ch)
{
    if (index >= 0 && index < GetLength()) Reserve(0, true)[index] = ch;
}

void CString::Append(const char* text, int length)
{
    if (!text || length <= 0) return;
    const CString held = text >= m_text && text <= m_text + GetLength() ? *this : CString();
    const int old = GetLength();
    std::memcpy(Reserve(static_cast<LONGLONG>(old) + length, false) + old, text,
                static_cast<std::size_t>(length));
    SetLength(old + length);
}

CString& CString::operator+=(const CString& other)
{
    Append(other.m_text, other.GetLength());
    return *this;
}
CString& CString::operator+=(const char* text)
{
    Append(text, lengthOf(view(text)));
    return *this;
}
CString& CString::operator+=(char ch)
{
    Append(&ch, 1);
    return *this;
}

CString CString::Left(int count) const { return Mid(0, count); }
CString CString::Right(int count) const { return Mid(GetLength() - std::clamp(count, 0, GetLength())); }
CString CString::Mid(int first) const { return Mid(first, GetLength()); }
CString CString::Mid(int first, int count) const
{
    first = std::clamp(first, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - first);
    return count == GetLength() ? *this : CString(m_text + first, count);
}
CString CString::SpanIncluding(const char* set) const
{
    return Left(static_cast<int>(std::strspn(m_text, set ? set : "")));
}
CString CString::SpanExcluding(const char* set) const
{
    return Left(static_cast<int>(std::strcspn(m_text, set ? set : "")));
}

int CString::Order(const CString& other) const noexcept
{
    return std::string_view(m_text, static_cast<std::size_t>(GetLength()))
        .compare(std::string_view(other.m_text, static_cast<std::size_t>(other.GetLength())));
}
int CString::Compare(const char* text) const noexcept { return std::strcmp(m_text, text ? text : ""); }
int CString::CompareNoCase(const char* text) const noexcept { return _stricmp(m_text, text ? text : ""); }
int CString::Collate(const char* text) const noexcept { return std::strcoll(m_text, text ? text : ""); }

int CString::Find(char ch, int start) const noexcept
{
    if (start < 0) return -1;
    return indexOf(std::string_view(m_text, static_cast<std::size_t>(GetLength()))
                       .find(ch, static_cast<std::size_t>(start)));
}
int CString::Find(const char* text, int start) const noexcept
{
    if (start < 0) return -1;
    return indexOf(std::string_view(m_text, static_cast<std::size_t>(GetLength()))
                       .find(view(text), static_cast<std::size_t>(start)));
}
int CString::FindOneOf(const char* set) const noexcept
{
    return indexOf(std::string_view(m_text, static_cast<std::size_t>(GetLength())).find_first_of(view(set)));
}
int CString::ReverseFind(char ch) const noexcept
{
    return indexOf(std::string_view(m_text, static_cast<std::size_t>(GetLength())).rfind(ch));
}

void CString::MakeUpper() { _strupr(Reserve(0, true)); }
void CString::MakeLower() { _strlwr(Reserve(0, true)); }
void CString::MakeReverse()
{
    char* text = Reserve(0, true);
    std::reverse(text, text + GetLength());
}

namespace {
constexpr const char* whiteSpace = " \t\n\v\f\r";
}
void CString::TrimLeft() { TrimLeft(whiteSpace); }
void CString::TrimLeft(const char* set)
{
    *this = Mid(static_cast<int>(std::strspn(m_text, set ? set : "")));
}
void CString::TrimRight() { TrimRight(whiteSpace); }
void CString::TrimRight(const char* set)
{
    const std::string_view text(m_text, static_cast<std::size_t>(GetLength()));
    *this = Left(indexOf(text.find_last_not_of(view(set))) + 1);
}

int CString::Replace(char from, char to)
{
    const int count = static_cast<int>(std::count(m_text, m_text + GetLength(), from));
    if (from == to || count == 0) return 0;
    char* text = Reserve(0, true);
    std::replace(text, text + GetLength(), from, to);
    return count;
}

int CString::Replace(const char* from, const char* to)
{
    const std::string_view what = view(from), with = view(to);
    if (what.empty()) return 0;
    const std::string_view text(m_text, static_cast<std::size_t>(GetLength()));
    CString result;
    int count = 0;
    std::size_t begin = 0;
    for (std::size_t hit; (hit = text.find(what, begin)) != std::string_view::npos;
         begin = hit + what.size(), ++count) {
        result.Append(text.data() + begin, static_cast<int>(hit - begin));
        result.Append(with.data(), lengthOf(with));
    }
    if (count == 0) return 0;
    result.Append(text.data() + begin, static_cast<int>(text.size() - begin));
    *this = std::move(result);
    return count;
}

int CString::Remove(char ch)
{
    char* text = Reserve(0, true);
    const int kept = static_cast<int>(std::remove(text, text + GetLength(), ch) - text);
    const int removed = GetLength() - kept;
    if (removed) SetLength(kept);
    return removed;
}

int CString::Insert(int index, const char* text)
{
    const CString tail = Mid(std::max(index, 0));
    CString result = Left(std::max(index, 0));
    result += text;
    *this = result + tail;
    return GetLength();
}

int CString::Delete(int index, int count)
{
    if (index < 0 || count <= 0) return GetLength();
    const CString tail = index < GetLength() && count < GetLength() - index ? Mid(index + count) : CString();
    *this = Left(index) + tail;
    return GetLength();
}

char* CString::GetBuffer(int capacity) { return Reserve(std::max(capacity, 1), true); }
char* CString::GetBufferSetLength(int length)
{
    length = std::max(length, 0);
    char* text = GetBuffer(length);
    SetLength(length);
    return text;
}
void CString::ReleaseBuffer(int length)
{
    char* text = Reserve(0, true);
    const int capacity = Header()->capacity;
    if (length < 0) length = static_cast<int>(strnlen(text, static_cast<std::size_t>(capacity)));
    SetLength(std::min(length, capacity));
}
void CString::FreeExtra()
{
    if (GetLength() != Header()->capacity) *this = CString(m_text, GetLength());
}

CString operator+(const CString& a, const CString& b)
{
    CString result;
    result.GetBuffer(
        static_cast<int>(std::min<LONGLONG>(static_cast<LONGLONG>(a.GetLength()) + b.GetLength(), INT_MAX)));
    result += a;
    return result += b;
}
CString operator+(const CString& a, const char* b) { return CString(a) += b; }
CString operator+(const char* a, const CString& b) { return CString(a) += b; }
CString operator+(const CString& a, char b) { return CString(a) += b; }
CString operator+(char a, const CString& b) { return CString(a) += b; }
