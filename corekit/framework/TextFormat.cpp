#include "corekit/framework/TextFormat.h"

#include "corekit/framework/CodePageText.h"
#include "corekit/platform/TextScan.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>
#include <string>
#include <string_view>

namespace corekit::detail {
namespace {

// A long format would reserve the square of its length: 5,000 million characters for one of 100,000. Its
// plain characters get no more than this; a text that needs more grows the buffer when it is written.
constexpr LONGLONG mostForPlainText = 1 << 20;

constexpr LONGLONG roomOfNumber = 32;

enum class Size { none, character, shortOne, longOne, longLong, longDouble };
enum class Kind {
    unknown,
    signedInteger,
    unsignedInteger,
    real,
    pointer,
    count,
    narrowChar,
    wideChar,
    narrowText,
    wideText
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
    Size size = Size::none;
    Kind kind = Kind::unknown;
    char letter = 0;
    bool hasRoom = true; // the conversion is one that room is reserved for
};

// What an item is to print; the kind may be another one than that of the letter.
struct Value {
    Kind kind = Kind::unknown;
    LONGLONG integer = 0; // of Unsigned, the bits
    long double real = 0;
    const void* pointer = nullptr; // also a text's

    const char* narrow() const { return static_cast<const char*>(pointer); }
    const WCHAR* wide() const { return static_cast<const WCHAR*>(pointer); }
};

template <class Ch>
int readNumber(const Ch*& p)
{
    LONGLONG n = 0;
    for (; *p >= '0' && *p <= '9'; ++p) n = std::min<LONGLONG>(n * 10 + (*p - '0'), INT_MAX);
    return static_cast<int>(n);
}

template <class Ch>
constexpr bool isOneOf(Ch ch, std::string_view set)
{
    return std::any_of(set.begin(), set.end(), [ch](char c) { return static_cast<Ch>(c) == ch; });
}

int starNumber(FormatSource& args)
{
    return static_cast<int>(std::clamp<LONGLONG>(args.Next<int>().Integer(), INT_MIN, INT_MAX));
}

template <class Ch>
void readFlagsAndWidth(const Ch*& p, Item<Ch>& item, FormatSource& args)
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
            item.width = starNumber(args);
            continue;
        default:
            break;
        }
        break;
    }
    if (item.width == 0) item.width = readNumber(p);
    if (*p != '.') return;
    item.hasPrecision = true;
    if (*++p == '*') {
        ++p;
        item.precision = starNumber(args);
    } else {
        item.precision = readNumber(p);
    }
}

constexpr std::string_view integerLetters = "diouxX";

// The size prefixes beyond one of F, L, N, h and l: how many characters, 0 if there is none. No room is
// reserved for an item that has one.
template <class Ch>
int longPrefix(const Ch* p, Size& size)
{
    size = p[0] == 'h' ? Size::character : Size::longLong;
    if ((p[0] == 'h' || p[0] == 'l') && p[1] == p[0] && isOneOf(p[2], integerLetters)) return 2;
    if (isOneOf(p[0], "jzt") && isOneOf(p[1], integerLetters)) return 1;
    if (p[0] == 'I' && p[1] == '6' && p[2] == '4' && isOneOf(p[3], integerLetters)) return 3;
    size = Size::none;
    return 0;
}

// Reads a size prefix. Where the text from which characters count as plain begins early, that place.
template <class Ch>
const Ch* readSize(const Ch*& p, Item<Ch>& item)
{
    if (const int length = longPrefix(p, item.size)) {
        // Only the first letter of it, or both of hh and ll, pass for size and conversion; the rest is plain
        // text.
        const Ch* const counts = p + (length == 2 ? 2 : 1);
        item.hasRoom = false;
        p += length;
        return counts;
    }
    if (*p == 'h' || *p == 'l') {
        item.size = *p++ == 'h' ? Size::shortOne : Size::longOne;
    } else if (*p == 'L' || (isOneOf(*p, "FN") && isOneOf(p[1], "cCsSdiouxXpnefgG"))) {
        item.size = *p++ == 'L' ? Size::longDouble : Size::none;
    }
    return nullptr;
}

template <class Ch>
Kind textKind(char letter, Size size)
{
    const bool isWide = size == Size::longOne || (size != Size::shortOne && (sizeof(Ch) > 1 || letter < 'a'));
    if (letter == 'c' || letter == 'C') return isWide ? Kind::wideChar : Kind::narrowChar;
    return isWide ? Kind::wideText : Kind::narrowText;
}

template <class Ch>
Kind kindOf(char letter, Size size)
{
    switch (letter) {
    case 'c':
    case 'C':
    case 's':
    case 'S':
        return textKind<Ch>(letter, size);
    case 'd':
    case 'i':
        return Kind::signedInteger;
    case 'o':
    case 'u':
    case 'x':
    case 'X':
        return Kind::unsignedInteger;
    case 'p':
        return Kind::pointer;
    case 'n':
        return Kind::count;
    default:
        return isOneOf(letter, "efgGEFaA") ? Kind::real : Kind::unknown;
    }
}

template <class Ch>
void readConversion(const Ch*& p, Item<Ch>& item)
{
    const Ch* counts = nullptr;
    if (isOneOf(*p, "hljztILFN")) counts = readSize(p, item);
    item.letter = *p > 0 && *p < 0x80 ? static_cast<char>(*p) : '\0';
    item.kind = kindOf<Ch>(item.letter, item.size);
    if (item.kind == Kind::unknown || isOneOf(item.letter, "EFaA")) item.hasRoom = false;
    if (*p) ++p;
    item.end = p;
    item.counts = counts ? counts : p;
}

using Type = FormatArgument::Type;

// The argument of an item; a va_list has what the letter says.
template <class Ch>
FormatArgument nextArgument(const Item<Ch>& item, FormatSource& args)
{
    switch (item.kind) {
    case Kind::signedInteger:
    case Kind::unsignedInteger:
        return item.size == Size::longOne || item.size == Size::longLong ? args.Next<long>()
                                                                         : args.Next<int>();
    case Kind::real:
        return item.size == Size::longDouble ? args.Next<long double>() : args.Next<double>();
    case Kind::narrowChar:
    case Kind::wideChar:
        return args.Next<int>();
    case Kind::narrowText:
        return args.Next<const char*>();
    case Kind::wideText:
        return args.Next<const WCHAR*>();
    case Kind::pointer:
    case Kind::count:
        return args.Next<const void*>();
    case Kind::unknown:
        break;
    }
    return {};
}

long double realOf(const FormatArgument& argument)
{
    if (argument.GetType() == Type::real) return argument.Real();
    const LONGLONG integer = argument.Integer();
    return argument.IsSigned() ? static_cast<long double>(integer)
                               : static_cast<long double>(static_cast<DWORDLONG>(integer));
}

LONGLONG integerOf(const FormatArgument& argument)
{
    if (argument.GetType() != Type::real) return argument.Integer();
    constexpr long double limit = 0x1p63L;
    const long double real = argument.Real();
    return real >= -limit && real < limit ? static_cast<LONGLONG>(real) : 0; // and for what is no number
}

// An integer of so many bits, seen with or without a sign.
LONGLONG ofBits(LONGLONG value, int bits, bool isSigned)
{
    const auto up = static_cast<DWORDLONG>(value) << (64 - bits);
    return isSigned ? static_cast<LONGLONG>(up) >> (64 - bits) : static_cast<LONGLONG>(up >> (64 - bits));
}

int bitsOf(Size size, const FormatArgument& argument)
{
    if (size == Size::character) return 8;
    if (size == Size::shortOne) return 16;
    return size == Size::longLong || argument.GetType() != Type::integer ? 64 : argument.Bits();
}

// A text of the width that it has; without a type, of the width of the letter. Numbers are written.
Value textOf(Kind kind, const FormatArgument& argument)
{
    Value value;
    switch (argument.GetType()) {
    case Type::integer:
        value.kind = argument.IsSigned() ? Kind::signedInteger : Kind::unsignedInteger;
        value.integer = ofBits(argument.Integer(), argument.Bits(), argument.IsSigned());
        break;
    case Type::real:
        value.kind = Kind::real;
        value.real = argument.Real();
        break;
    case Type::narrow:
    case Type::wide:
        kind = argument.GetType() == Type::narrow ? Kind::narrowText : Kind::wideText;
        [[fallthrough]];
    default:
        value.kind = kind;
        value.pointer = argument.Pointer();
    }
    return value;
}

template <class Ch>
Value take(const Item<Ch>& item, FormatSource& args)
{
    const FormatArgument argument = nextArgument(item, args);
    Value value;
    value.kind = item.kind;
    switch (item.kind) {
    case Kind::signedInteger:
    case Kind::unsignedInteger:
        value.integer =
            ofBits(integerOf(argument), bitsOf(item.size, argument), item.kind == Kind::signedInteger);
        break;
    case Kind::real:
        value.real = realOf(argument);
        break;
    case Kind::narrowChar:
    case Kind::wideChar:
        value.integer = integerOf(argument);
        break;
    case Kind::narrowText:
    case Kind::wideText:
        return textOf(item.kind, argument);
    case Kind::pointer:
        value.pointer = reinterpret_cast<const void*>(static_cast<std::intptr_t>(argument.Integer()));
        break;
    default:
        break;
    }
    return value;
}

template <class Ch>
int boundedLength(const Ch* p, int most)
{
    return most < 0 ? countedLength(textLength(p)) : textLength(p, most);
}

// --- the room

template <class Ch>
struct Meter {
    const Ch* formatEnd;
    BufferRange<Ch> buffer;
    LONGLONG plain = 0, items = 0;
    bool readsBuffer = false;

    // Each character counts as many as the format still has.
    void Plain(const Ch* from, const Ch* to)
    {
        const LONGLONG n = to - from;
        plain += n * (formatEnd - from) - n * (n - 1) / 2;
    }

    void Convert(const Item<Ch>& item, const Value& value)
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
        switch (value.kind) {
        case Kind::signedInteger:
        case Kind::unsignedInteger:
        case Kind::pointer:
            return std::max(roomOfNumber, asked);
        case Kind::real:
            return std::max(LONGLONG{128}, asked);
        case Kind::narrowChar:
        case Kind::wideChar:
            length = 2;
            break;
        case Kind::narrowText:
        case Kind::wideText:
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
        Look(value.pointer);
        const int most = precision > 0 ? precision : -1;
        return value.kind == Kind::narrowText ? boundedLength(value.narrow(), most)
                                              : boundedLength(value.wide(), most);
    }

    void Look(const void* text)
    {
        const std::less_equal<const void*> notAbove;
        readsBuffer |= notAbove(buffer.begin, text) && notAbove(text, buffer.end);
    }

    int Bound() const
    {
        const LONGLONG bound = std::min(plain, mostForPlainText) + items;
        return countedLength(static_cast<std::size_t>(std::max(bound, LONGLONG{0})));
    }
};

// --- the text

template <class Ch>
struct Writer {
    BufferRange<Ch> out;
    std::size_t length = 0;

    template <class From>
    void Put(const From* p, std::size_t n)
    {
        const std::size_t fits = std::min(n, Room());
        Ch* const to = out.begin + std::min(length, All());
        if constexpr (sizeof(From) < sizeof(Ch))
            std::transform(p, p + fits, to, [](From c) { return static_cast<Ch>(static_cast<BYTE>(c)); });
        else
            std::copy_n(p, fits, to);
        length += n;
    }
    void Fill(std::size_t n, char with = ' ')
    {
        std::fill_n(out.begin + std::min(length, All()), std::min(n, Room()), static_cast<Ch>(with));
        length += n;
    }
    std::size_t All() const { return static_cast<std::size_t>(out.end - out.begin); }
    std::size_t Room() const { return All() - std::min(length, All()); }

    void Convert(const Ch* percent, const Item<Ch>& item, const Value& value)
    {
        switch (value.kind) {
        case Kind::unknown:
            return Put(percent, static_cast<std::size_t>(item.end - percent));
        case Kind::count:
            return;
        case Kind::signedInteger:
        case Kind::unsignedInteger:
            return Integer(item, value);
        case Kind::pointer:
            return Runtime(item, "", 'p', value.pointer);
        case Kind::real: {
            const char letter = item.kind == Kind::real ? item.letter : 'g';
            if (item.size == Size::longDouble) return Runtime(item, "L", letter, value.real);
            return Runtime(item, "", letter, static_cast<double>(value.real));
        }
        case Kind::narrowChar: {
            const char one = static_cast<char>(value.integer);
            return Narrow(item, {&one, 1});
        }
        case Kind::wideChar: {
            const WCHAR one = static_cast<WCHAR>(value.integer);
            return Wide(item, {&one, 1});
        }
        case Kind::narrowText:
            if (!value.pointer) return Narrow(item, Cut(std::string_view("(null)"), item.precision));
            return Narrow(item, Bounded(value.narrow(), item.precision));
        case Kind::wideText:
            if (!value.pointer) return Wide(item, Cut(std::u16string_view(u"(null)"), item.precision));
            return Wide(item, Bounded(value.wide(), item.precision));
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
        return {p, static_cast<std::size_t>(boundedLength(p, precision))};
    }

    void Narrow(const Item<Ch>& item, std::string_view text)
    {
        if constexpr (sizeof(Ch) == 1)
            Padded(item, text);
        else
            Padded(item, std::u16string_view(wideText(text)));
    }
    void Wide(const Item<Ch>& item, std::u16string_view text)
    {
        if constexpr (sizeof(Ch) == 1)
            Padded(item, std::string_view(narrowText(text, item.precision)));
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

    void Decimal(LONGLONG value, bool isSigned)
    {
        char digits[24];
        char* const end = isSigned
                              ? std::to_chars(digits, std::end(digits), value).ptr
                              : std::to_chars(digits, std::end(digits), static_cast<DWORDLONG>(value)).ptr;
        Put(digits, static_cast<std::size_t>(end - digits));
    }

    void Integer(const Item<Ch>& item, const Value& value)
    {
        const bool isNegative = value.kind == Kind::signedInteger && value.integer < 0;
        const auto bits = static_cast<DWORDLONG>(value.integer);
        const char letter = item.kind == value.kind ? item.letter : 'd';
        const int base = letter == 'o' ? 8 : letter == 'x' || letter == 'X' ? 16 : 10;
        char digits[24];
        char* const end = std::to_chars(digits, std::end(digits), isNegative ? -bits : bits, base).ptr;
        if (letter == 'X')
            std::transform(digits, end, digits,
                           [](char c) { return c < 'a' ? c : static_cast<char>(c - 32); });
        std::string_view number(digits, static_cast<std::size_t>(end - digits));
        if (item.precision == 0 && value.integer == 0) number = {};

        std::string_view prefix;
        if (value.kind == Kind::signedInteger)
            prefix = isNegative ? "-" : item.plus ? "+" : item.blank ? " " : "";
        if (item.hashes && base == 16 && value.integer != 0) prefix = letter == 'x' ? "0x" : "0X";
        const auto missing = [&](LONGLONG wanted, std::size_t there) {
            return static_cast<std::size_t>(std::max(wanted - static_cast<LONGLONG>(there), LONGLONG{0}));
        };
        std::size_t zeros = missing(item.precision, number.size());
        if (item.hashes && base == 8 && zeros == 0 && !number.starts_with('0')) zeros = 1;
        const auto width = std::abs(LONGLONG{item.width});
        const bool left = item.left || item.width < 0;
        if (item.zero && !left && item.precision < 0)
            zeros = std::max(zeros, missing(width, prefix.size() + number.size()));
        const std::size_t padding = missing(width, prefix.size() + zeros + number.size());
        if (!left) Fill(padding);
        Put(prefix.data(), prefix.size());
        Fill(zeros, '0');
        Put(number.data(), number.size());
        if (left) Fill(padding);
    }

    // The runtime writes reals and pointers, with the size that the value was taken into.
    template <class T>
    void Runtime(const Item<Ch>& item, const char* size, char letter, T value)
    {
        const bool isPointer = letter == 'p';
        std::string spec = "%";
        if (item.left) spec += '-';
        if (item.plus && !isPointer) spec += '+';
        if (item.blank && !isPointer) spec += ' ';
        if (item.zero && !isPointer) spec += '0';
        if (item.hashes && !isPointer) spec += '#';
        spec.append("*.*").append(size) += letter;
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

// One walk over a format, which finds the room to reserve and writes what fits.
template <class Ch>
class Walk {
public:
    Walk(BufferRange<Ch> out, const Ch* format, const FormatSource& args, BufferRange<Ch> own)
        : m_args(args), m_format(format),
          m_end(format + textLength(format)), m_meter{m_end, own}, m_writer{out}
    {
        m_meter.Look(format);
    }

    FormatResult Run()
    {
        for (const Ch* p = m_format; p < m_end;) {
            if (*p != '%' || p[1] == '%') {
                p = Plain(p);
            } else if (Simple(p[1])) {
                p += 2;
            } else {
                p = Convert(p);
            }
        }
        return {countedLength(m_writer.length), m_meter.Bound(), m_meter.readsBuffer, m_hasCharacter};
    }

private:
    // Up to the next percent sign, or one of two.
    const Ch* Plain(const Ch* p)
    {
        p += *p == '%';
        const Ch* const plain = p++;
        if (*plain != '%') p = FindPercent(p);
        m_meter.Plain(plain, p);
        m_writer.Put(plain, static_cast<std::size_t>(p - plain));
        return p;
    }

    const Ch* FindPercent(const Ch* p) const
    {
        const Ch* const at = std::char_traits<Ch>::find(p, static_cast<std::size_t>(m_end - p), Ch{'%'});
        return at ? at : m_end;
    }

    // Numbers and texts without flags and the like, of their own type: most are so.
    bool Simple(Ch letter)
    {
        const FormatArgument* const argument = m_args.Known();
        if (!argument) return false;
        if (letter == 's') {
            if (argument->GetType() != (sizeof(Ch) == 1 ? Type::narrow : Type::wide)) return false;
            const auto* const text = static_cast<const Ch*>(argument->Pointer());
            if (!text) return false;
            const auto length = static_cast<std::size_t>(boundedLength(text, -1));
            m_meter.Look(text);
            m_meter.items += std::max(static_cast<LONGLONG>(length), LONGLONG{1});
            m_writer.Put(text, length);
        } else {
            if ((letter != 'd' && letter != 'u') || argument->GetType() != Type::integer) return false;
            m_meter.items += roomOfNumber;
            m_writer.Decimal(ofBits(argument->Integer(), argument->Bits(), letter == 'd'), letter == 'd');
        }
        m_args.SkipKnown();
        return true;
    }

    const Ch* Convert(const Ch* p)
    {
        Item<Ch> item{};
        const Ch* const percent = p++;
        readFlagsAndWidth(p, item, m_args);
        readConversion(p, item);
        const Value value = take(item, m_args);
        m_hasCharacter |= value.kind == Kind::narrowChar || value.kind == Kind::wideChar;
        m_meter.Convert(item, value);
        m_meter.Bound(); // what no memory can hold is not written
        m_writer.Convert(percent, item, value);
        return item.end;
    }

    FormatSource m_args;
    const Ch* m_format;
    const Ch* m_end;
    Meter<Ch> m_meter;
    Writer<Ch> m_writer;
    bool m_hasCharacter = false;
};

} // namespace

FormatResult writeFormat(BufferRange<char> out, const char* format, const FormatSource& source,
                         BufferRange<char> own)
{
    return Walk<char>(out, format, source, own).Run();
}
FormatResult writeFormat(BufferRange<WCHAR> out, const WCHAR* format, const FormatSource& source,
                         BufferRange<WCHAR> own)
{
    return Walk<WCHAR>(out, format, source, own).Run();
}

} // namespace corekit::detail
