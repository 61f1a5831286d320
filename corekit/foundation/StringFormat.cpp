#include "corekit/foundation/StringFormat.h"

#include "corekit/foundation/TextConversion.h"
#include "corekit/platform/TextScan.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

namespace corekit::detail {
namespace {

// A long format would reserve the square of its length: 5,000 million characters for one of 100,000. Its
// plain characters get no more than this; a text that needs more grows the buffer when it is written.
constexpr LONGLONG mostForPlainText = 1 << 20;

struct Arguments {
    va_list list;
    explicit Arguments(va_list from) { va_copy(list, from); }
    ~Arguments() { va_end(list); }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;
};

enum class Size { None, Char, Short, Long, LongLong, LongDouble };
enum class Kind {
    Unknown,
    Signed,
    Unsigned,
    Real,
    Pointer,
    Count,
    NarrowChar,
    WideChar,
    NarrowText,
    WideText
};

// One % with what belongs to it.
template <class Ch>
struct Item {
    const Ch* end;    // behind the conversion
    const Ch* counts; // characters from here to the end count as plain text in the room
    bool left = false, plus = false, blank = false, zero = false;
    int hashes = 0;
    int width = 0;
    bool hasPrecision = false;
    int precision = -1; // a * may bring any number; below 0 the text is whole
    Size size = Size::None;
    Kind kind = Kind::Unknown;
    char letter = 0;
    bool hasRoom = true; // the conversion is one that room is reserved for
};

struct Value {
    LONGLONG integer = 0;
    long double real = 0;
    const void* pointer = nullptr;
    const char* narrow = nullptr;
    const WCHAR* wide = nullptr;
    WCHAR character = 0;
};

template <class Ch>
int ReadNumber(const Ch*& p)
{
    LONGLONG n = 0;
    for (; *p >= '0' && *p <= '9'; ++p) n = std::min<LONGLONG>(n * 10 + (*p - '0'), INT_MAX);
    return static_cast<int>(n);
}

template <class Ch>
bool IsOneOf(Ch ch, std::string_view set)
{
    return std::any_of(set.begin(), set.end(), [ch](char c) { return static_cast<Ch>(c) == ch; });
}

template <class Ch>
void ReadFlagsAndWidth(const Ch*& p, Item<Ch>& item, Arguments& args)
{
    for (;; ++p) {
        switch (*p) {
        case '-':
            item.left = true;
            continue;
        case '+':
            item.plus = true;
            continue;
        case ' ':
            item.blank = true;
            continue;
        case '0':
            item.zero = true;
            continue;
        case '#':
            ++item.hashes;
            continue;
        case '*':
            item.width = va_arg(args.list, int);
            continue;
        default:
            break;
        }
        break;
    }
    if (item.width == 0) item.width = ReadNumber(p);
    if (*p != '.') return;
    item.hasPrecision = true;
    if (*++p == '*') {
        ++p;
        item.precision = va_arg(args.list, int);
    } else {
        item.precision = ReadNumber(p);
    }
}

constexpr std::string_view integerLetters = "diouxX";

// The size prefixes beyond one of F, L, N, h and l: how many characters, 0 if there is none. No room is
// reserved for an item that has one.
template <class Ch>
int LongPrefix(const Ch* p, Size& size)
{
    size = p[0] == 'h' ? Size::Char : Size::LongLong;
    if ((p[0] == 'h' || p[0] == 'l') && p[1] == p[0] && IsOneOf(p[2], integerLetters)) return 2;
    if (IsOneOf(p[0], "jzt") && IsOneOf(p[1], integerLetters)) return 1;
    if (p[0] == 'I' && p[1] == '6' && p[2] == '4' && IsOneOf(p[3], integerLetters)) return 3;
    size = Size::None;
    return 0;
}

template <class Ch>
Kind TextKind(char letter, Size size)
{
    const bool isWide = size == Size::Long || (size != Size::Short && (sizeof(Ch) > 1 || letter < 'a'));
    if (letter == 'c' || letter == 'C') return isWide ? Kind::WideChar : Kind::NarrowChar;
    return isWide ? Kind::WideText : Kind::NarrowText;
}

template <class Ch>
void ReadConversion(const Ch*& p, Item<Ch>& item)
{
    const Ch* counts = nullptr;
    if (const int length = LongPrefix(p, item.size)) {
        // Only the first letter of it, or both of hh and ll, pass for size and conversion; the rest is plain
        // text.
        counts = p + (length == 2 ? 2 : 1);
        item.hasRoom = false;
        p += length;
    } else if (*p == 'h' || *p == 'l') {
        item.size = *p++ == 'h' ? Size::Short : Size::Long;
    } else if (*p == 'L' || (IsOneOf(*p, "FN") && IsOneOf(p[1], "cCsSdiouxXpnefgG"))) {
        item.size = *p++ == 'L' ? Size::LongDouble : Size::None;
    }
    item.letter = *p > 0 && *p < 0x80 ? static_cast<char>(*p) : '\0';
    switch (item.letter) {
    case 'c':
    case 'C':
    case 's':
    case 'S':
        item.kind = TextKind<Ch>(item.letter, item.size);
        break;
    case 'd':
    case 'i':
        item.kind = Kind::Signed;
        break;
    case 'o':
    case 'u':
    case 'x':
    case 'X':
        item.kind = Kind::Unsigned;
        break;
    case 'e':
    case 'f':
    case 'g':
    case 'G':
        item.kind = Kind::Real;
        break;
    case 'E':
    case 'F':
    case 'a':
    case 'A':
        item.kind = Kind::Real;
        item.hasRoom = false;
        break;
    case 'p':
        item.kind = Kind::Pointer;
        break;
    case 'n':
        item.kind = Kind::Count;
        break;
    default:
        item.hasRoom = false;
        break;
    }
    if (*p) ++p;
    item.end = p;
    item.counts = counts ? counts : p;
}

// Takes the argument of an item, as a C++ caller passes it.
template <class Ch>
Value Take(const Item<Ch>& item, Arguments& args)
{
    Value value;
    switch (item.kind) {
    case Kind::Signed:
    case Kind::Unsigned: {
        const bool isSigned = item.kind == Kind::Signed;
        switch (item.size) {
        case Size::Long:
        case Size::LongLong:
            value.integer = va_arg(args.list, long);
            break;
        default: {
            const int taken = va_arg(args.list, int);
            if (item.size == Size::Char) {
                value.integer =
                    isSigned ? LONGLONG{static_cast<signed char>(taken)} : static_cast<BYTE>(taken);
            } else if (item.size == Size::Short) {
                value.integer = isSigned ? LONGLONG{static_cast<SHORT>(taken)} : static_cast<WORD>(taken);
            } else {
                value.integer = isSigned ? LONGLONG{taken} : LONGLONG{static_cast<UINT>(taken)};
            }
        }
        }
        break;
    }
    case Kind::Real:
        if (item.size == Size::LongDouble) {
            value.real = va_arg(args.list, long double);
        } else {
            value.real = va_arg(args.list, double);
        }
        break;
    case Kind::NarrowChar:
    case Kind::WideChar:
        value.character = static_cast<WCHAR>(va_arg(args.list, int));
        break;
    case Kind::NarrowText:
        value.pointer = value.narrow = va_arg(args.list, const char*);
        break;
    case Kind::WideText:
        value.pointer = value.wide = va_arg(args.list, const WCHAR*);
        break;
    case Kind::Pointer:
    case Kind::Count:
        value.pointer = va_arg(args.list, const void*);
        break;
    case Kind::Unknown:
        break;
    }
    return value;
}

template <class Ch>
int BoundedLength(const Ch* p, int most)
{
    return most < 0 ? CountedLength(TextLength(p)) : TextLength(p, most);
}

template <class Ch, class Visitor>
void WalkFormat(const Ch* format, Arguments& args, Visitor& visitor)
{
    for (const Ch* p = format; *p;) {
        if (*p != '%' || p[1] == '%') {
            p += *p == '%';
            const Ch* plain = p++;
            if (*plain != '%') {
                while (*p && *p != '%') ++p;
            }
            visitor.Plain(plain, p);
            continue;
        }
        Item<Ch> item{};
        const Ch* percent = p++;
        ReadFlagsAndWidth(p, item, args);
        ReadConversion(p, item);
        visitor.Convert(percent, item, Take(item, args));
        p = item.end;
    }
}

// --- the room

template <class Ch>
struct Meter {
    const Ch* formatEnd;
    BufferRange<Ch> buffer;
    LONGLONG plain = 0, items = 0;
    bool readsBuffer = false;

    void Plain(const Ch* from, const Ch* to)
    {
        for (; from < to; ++from) plain += formatEnd - from;
    }

    void Convert(const Ch*, const Item<Ch>& item, const Value& value)
    {
        items += LONGLONG{2} * item.hashes;
        if (item.hasRoom) items += Room(item, value);
        Plain(item.counts, item.end);
    }

    LONGLONG Room(const Item<Ch>& item, const Value& value)
    {
        const int precision = item.hasPrecision ? item.precision : 0;
        const LONGLONG asked = LONGLONG{item.width} + precision;
        LONGLONG length = 0;
        switch (item.kind) {
        case Kind::Signed:
        case Kind::Unsigned:
        case Kind::Pointer:
            return std::max(LONGLONG{32}, asked);
        case Kind::Real:
            return std::max(LONGLONG{128}, asked);
        case Kind::NarrowChar:
        case Kind::WideChar:
            length = 2;
            break;
        case Kind::NarrowText:
        case Kind::WideText:
            length = TextRoom(value, precision);
            break;
        default:
            return 0;
        }
        length = std::max({length, LONGLONG{1}, LONGLONG{item.width}});
        return precision != 0 && precision <= length ? precision : length;
    }

    // No more than the precision is looked at: a text may be unterminated behind it.
    LONGLONG TextRoom(const Value& value, int precision)
    {
        if (!value.pointer) return 6;
        const std::less_equal<const void*> notAbove;
        readsBuffer |= notAbove(buffer.begin, value.pointer) && notAbove(value.pointer, buffer.end);
        const int most = precision > 0 ? precision : -1;
        return value.narrow ? BoundedLength(value.narrow, most) : BoundedLength(value.wide, most);
    }
};

template <class Ch>
FormatRoom Measure(const Ch* format, va_list list, BufferRange<Ch> buffer)
{
    Arguments args(list);
    const Ch* formatEnd = format + TextLength(format);
    Meter<Ch> meter{formatEnd, buffer};
    WalkFormat(format, args, meter);
    const std::less_equal<const Ch*> notAbove;
    const bool isOwnFormat = notAbove(buffer.begin, format) && notAbove(format, buffer.end);
    const LONGLONG bound = std::min(meter.plain, mostForPlainText) + meter.items;
    return {CountedLength(static_cast<std::size_t>(std::max(bound, LONGLONG{0}))),
            meter.readsBuffer || isOwnFormat};
}

// --- the text

template <class Ch>
struct Writer {
    BufferRange<Ch> out;
    std::size_t length = 0;

    template <class From>
    void Put(const From* p, std::size_t n)
    {
        const std::size_t fits = std::min(n, Room());
        std::transform(p, p + fits, out.begin + length, [](From c) {
            if constexpr (sizeof(From) < sizeof(Ch))
                return static_cast<Ch>(static_cast<BYTE>(c));
            else
                return static_cast<Ch>(c);
        });
        length += n;
    }
    void Fill(std::size_t n)
    {
        std::fill_n(out.begin + length, std::min(n, Room()), static_cast<Ch>(' '));
        length += n;
    }
    std::size_t Room() const
    {
        const auto all = static_cast<std::size_t>(out.end - out.begin);
        return length < all ? all - length : 0;
    }

    void Plain(const Ch* from, const Ch* to) { Put(from, static_cast<std::size_t>(to - from)); }

    void Convert(const Ch* percent, const Item<Ch>& item, const Value& value)
    {
        switch (item.kind) {
        case Kind::Unknown:
            return Plain(percent, item.end);
        case Kind::Count:
            return;
        case Kind::Signed:
        case Kind::Unsigned:
            return Number(item, "ll", value.integer);
        case Kind::Pointer:
            return Number(item, "", value.pointer);
        case Kind::Real:
            if (item.size == Size::LongDouble) return Number(item, "L", value.real);
            return Number(item, "", static_cast<double>(value.real));
        case Kind::NarrowChar: {
            const char one = static_cast<char>(value.character);
            return Narrow(item, {&one, 1});
        }
        case Kind::WideChar:
            return Wide(item, {&value.character, 1});
        case Kind::NarrowText:
            if (!value.narrow) return Narrow(item, Cut(std::string_view("(null)"), item.precision));
            return Narrow(item, Bounded(value.narrow, item.precision));
        case Kind::WideText:
            if (!value.wide) return Wide(item, Cut(std::u16string_view(u"(null)"), item.precision));
            return Wide(item, Bounded(value.wide, item.precision));
        }
    }

    template <class View>
    static View Cut(View text, int precision)
    {
        return precision < 0 ? text : text.substr(0, static_cast<std::size_t>(precision));
    }
    template <class Unit>
    static std::basic_string_view<Unit> Bounded(const Unit* p, int precision)
    {
        return {p, static_cast<std::size_t>(BoundedLength(p, precision))};
    }

    void Narrow(const Item<Ch>& item, std::string_view text)
    {
        if constexpr (sizeof(Ch) == 1)
            Padded(item, text);
        else
            Padded(item, std::u16string_view(WideText(text)));
    }
    void Wide(const Item<Ch>& item, std::u16string_view text)
    {
        if constexpr (sizeof(Ch) == 1)
            Padded(item, std::string_view(NarrowText(text, item.precision)));
        else
            Padded(item, text);
    }
    void Padded(const Item<Ch>& item, std::basic_string_view<Ch> text)
    {
        const auto width = static_cast<std::size_t>(std::abs(LONGLONG{item.width}));
        const std::size_t padding = width > text.size() ? width - text.size() : 0;
        const bool left = item.left || item.width < 0;
        if (!left) Fill(padding);
        Put(text.data(), text.size());
        if (left) Fill(padding);
    }

    // The runtime writes the numbers, with the size that the value was taken into.
    template <class T>
    void Number(const Item<Ch>& item, const char* size, T value)
    {
        const bool isPointer = item.kind == Kind::Pointer;
        std::string spec = "%";
        if (item.left) spec += '-';
        if (item.plus && !isPointer && item.kind != Kind::Unsigned) spec += '+';
        if (item.blank && !isPointer && item.kind != Kind::Unsigned) spec += ' ';
        if (item.zero && !isPointer) spec += '0';
        if (item.hashes && !isPointer && item.kind != Kind::Signed) spec += '#';
        spec.append("*.*").append(size) += item.letter;
        const int width = std::max(item.width, -INT_MAX);
        const int precision = isPointer ? -1 : item.precision;
        char text[128];
        const int needed = std::snprintf(text, sizeof text, spec.c_str(), width, precision, value);
        if (needed < 0) throw std::bad_alloc();
        if (needed < static_cast<int>(sizeof text)) return Put(text, static_cast<std::size_t>(needed));
        std::string longText(static_cast<std::size_t>(needed), '\0');
        std::snprintf(longText.data(), longText.size() + 1, spec.c_str(), width, precision, value);
        Put(longText.data(), longText.size());
    }
};

template <class Ch>
int Write(BufferRange<Ch> out, const Ch* format, va_list list)
{
    Arguments args(list);
    Writer<Ch> writer{out};
    WalkFormat(format, args, writer);
    return CountedLength(writer.length);
}

} // namespace

FormatRoom MeasureFormat(const char* format, va_list args, BufferRange<char> buffer)
{
    return Measure(format, args, buffer);
}
FormatRoom MeasureFormat(const WCHAR* format, va_list args, BufferRange<WCHAR> buffer)
{
    return Measure(format, args, buffer);
}
int WriteFormat(BufferRange<char> out, const char* format, va_list args) { return Write(out, format, args); }
int WriteFormat(BufferRange<WCHAR> out, const WCHAR* format, va_list args)
{
    return Write(out, format, args);
}

} // namespace corekit::detail
