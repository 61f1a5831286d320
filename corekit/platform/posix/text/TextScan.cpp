#include "corekit/platform/TextScan.h"

#include "corekit/platform/Runtime.h"
#include "corekit/platform/Vector16.h"

#include <string>
#include <string_view>

namespace corekit::detail {
namespace {

#ifdef __SSE2__
COREKIT_READS_WHOLE_BLOCKS inline __m128i Load(const WCHAR* p)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}
unsigned Mask(__m128i v) { return static_cast<unsigned>(_mm_movemask_epi8(v)); }
int FirstUnit(unsigned mask) { return std::countr_zero(mask) / 2; }

// A bit for each of 32 units that is 0.
COREKIT_READS_WHOLE_BLOCKS inline DWORD ZerosInLine(const WCHAR* p)
{
    const __m128i zero = _mm_setzero_si128();
    const __m128i low = _mm_packs_epi16(_mm_cmpeq_epi16(Load(p), zero), _mm_cmpeq_epi16(Load(p + 8), zero));
    const __m128i high =
        _mm_packs_epi16(_mm_cmpeq_epi16(Load(p + 16), zero), _mm_cmpeq_epi16(Load(p + 24), zero));
    return Mask(low) | Mask(high) << 16;
}

// The place of the first zero among 64 units, or 64.
COREKIT_READS_WHOLE_BLOCKS inline std::size_t LengthUpTo64(const WCHAR* p)
{
    const DWORDLONG zeros = ZerosInLine(p) | DWORDLONG{ZerosInLine(p + 32)} << 32;
    return static_cast<std::size_t>(std::countr_zero(zeros));
}

__m128i Splat(WCHAR ch) { return _mm_set1_epi16(static_cast<short>(ch)); }
#endif

// The first unit equal to ch or to 0 in text[0, n), or n. All of them are there.
int FirstOrEnd(const WCHAR* text, int n, WCHAR ch)
{
    int i = 0;
#ifdef __SSE2__
    const __m128i wanted = Splat(ch);
    const __m128i zero = _mm_setzero_si128();
    for (; n - i >= 8; i += 8) {
        const __m128i x = Load(text + i);
        const unsigned hit = Mask(_mm_or_si128(_mm_cmpeq_epi16(x, wanted), _mm_cmpeq_epi16(x, zero)));
        if (hit) return i + FirstUnit(hit);
    }
#endif
    while (i < n && text[i] != ch && text[i]) ++i;
    return i;
}

} // namespace

COREKIT_READS_WHOLE_BLOCKS std::size_t TextLength(const WCHAR* p)
{
#ifdef __SSE2__
    // The first 64 units at once, since the end of a short text is hard to guess; then whole cache lines.
    // Neither crosses into a page that the text is not in.
    const auto address = reinterpret_cast<std::uintptr_t>(p);
    std::size_t n = 0;
    if ((address & 4095) <= 4096 - 128) {
        n = LengthUpTo64(p);
        if (n < 64) return n;
    }
    while (((address + 2 * n) & 63) > 1) {
        if (!p[n]) return n;
        ++n;
    }
    if (address & 1) return n + std::char_traits<WCHAR>::length(p + n);
    for (;; n += 32) {
        if (const DWORD zeros = ZerosInLine(p + n))
            return n + static_cast<std::size_t>(std::countr_zero(zeros));
    }
#else
    return std::char_traits<WCHAR>::length(p);
#endif
}

// The text may end anywhere before n: nothing is read of a page that it does not reach.
COREKIT_READS_WHOLE_BLOCKS int TextLength(const WCHAR* p, int n)
{
    for (int i = 0; i < n;) {
        if (isBlockInPage(p + i)) {
            const unsigned zeros = laneBits(equalLanes(anyBlock(p + i), Units{}));
            if (zeros) return std::min(n, i + static_cast<int>(firstLane(zeros)));
            i += 8;
        } else {
            for (const int next = i + 8; i < next; ++i)
                if (i == n || !p[i]) return i;
        }
    }
    return n;
}

int FindInText(const char* text, int n, char ch)
{
    const std::string_view all(text, static_cast<std::size_t>(TextLength(text, n)));
    const auto at = all.find(ch);
    return at == all.npos ? -1 : static_cast<int>(at);
}

int FindInText(const WCHAR* text, int n, WCHAR ch)
{
    const int at = FirstOrEnd(text, n, ch);
    return at < n && text[at] == ch ? at : -1;
}

int FindInText(const char* text, int n, const char* what)
{
    const std::string_view all(text, static_cast<std::size_t>(TextLength(text, n)));
    const auto at = all.find(what);
    return at == all.npos ? -1 : static_cast<int>(at);
}

int FindInText(const WCHAR* text, int n, const WCHAR* what)
{
    const std::size_t found = crt16::find({text, static_cast<std::size_t>(n)}, {what, TextLength(what)});
    if (found == crt16::npos) return -1;
    const int at = static_cast<int>(found);
    return TextLength(text, at) < at ? -1 : at; // behind a zero there is nothing
}

int CompareText(const WCHAR* a, int lengthA, const WCHAR* b)
{
    if (*a != *b || !*a) return *a < *b ? -1 : *a > *b;
    const std::size_t i = MismatchInText(a, lengthA, b, CountedLength(TextLength(b)));
    return a[i] < b[i] ? -1 : a[i] > b[i];
}

} // namespace corekit::detail
