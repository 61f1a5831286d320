// What a format takes: numbers, characters, texts and string objects, each with its own type.
//
// The Format members of all string classes work alike:
//
//   %[flags][width][.precision][size]conversion     width and precision may be *, flags are - + 0 # and blank
//
//   s c     text or character of the string's own width       hs hc   narrow         ls lc   wide
//   S C     wide, in both widths                              hS hC   narrow         lS lC   wide
//   d i o u x X   integers; h and hh cut them to 16 and 8 bits, ll, j, z, t and I64 print 64 bits
//   e E f F g G a A   reals; with L in long double            p   a pointer
//   n   takes its pointer and writes nothing
//
// Each argument counts by its own type: a LONG given to %ld has 32 bits, a long 64; a text has the width that
// it has, whatever the letter says, and a string object stands for its text. A number where a text is asked
// for is written in decimal, and what is asked for beyond the arguments is 0 or (null), as a null text is.
// Narrow text is in the active code page. F, N and l before another conversion letter are accepted and mean
// nothing. What is no conversion is written as it stands.
//
// The forms with a va_list know no types: there the letters must be right, and l means a long of 64 bits.
//
//     CString text;
//     text.Format("%d of %d, %s", done, all, name);  // name: const char*, const WCHAR*, CString, StringW ...
//     text.Format("%-8.3s|%08X", name, number);      // three bytes of the name in eight columns
//
// Numbers are converted where a conversion asks for the other kind: a real given to %d is cut to its integer
// (0 where 64 bits do not hold it), an integer given to %f is printed as a real.
#pragma once

#include "corekit/platform/Types.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

namespace corekit::detail {

// A class takes part in formats by a friend FormattedText(const Class&) that gives its characters. Found by
// its argument, so the function stands beside the class. What it returns is good for as long as the object.
template <class T>
concept HasFormattedText = requires(const T& object)
{
    FormattedText(object);
};

// Numbers, enumerations, pointers, nullptr, and classes as above; anything else does not compile.
template <class T>
concept Formattable = std::is_arithmetic_v<T> || std::is_enum_v<T> || std::is_pointer_v<std::decay_t<T>> ||
    std::is_null_pointer_v<T> || HasFormattedText<T>;

// One argument with its type. Refers to text and does not copy it: good for the call that it is made for. 16
// bytes and a little; copied freely.
class FormatArgument {
public:
    // None is what stands beyond the last argument.
    enum class Type : unsigned char { none, integer, real, pointer, narrow, wide };

    // No argument at all.
    FormatArgument() = default;
    template <Formattable T>
    // Enumerations count as their underlying integers, bool and small integers as int, all reals as long
    // double. A pointer to 1-byte characters is narrow text, to 16-bit ones wide text, any other one an
    // address. Does not throw and allocates nothing. Text is never copied, and its length not looked at
    // here.
    explicit FormatArgument(const T& value)
    {
        using Plain = std::decay_t<T>;
        if constexpr (std::is_enum_v<Plain>) {
            SetInteger(static_cast<std::underlying_type_t<Plain>>(value));
        } else if constexpr (std::is_integral_v<Plain>) {
            SetInteger(value);
        } else if constexpr (std::is_floating_point_v<Plain>) {
            m_type = Type::real;
            const long double real = value;
            std::memcpy(m_real, &real, sizeof real);
        } else if constexpr (std::is_null_pointer_v<Plain>) {
            SetPointer(Type::pointer, nullptr);
        } else if constexpr (std::is_pointer_v<Plain>) {
            SetPointer(TypeOfText<std::remove_cv_t<std::remove_pointer_t<Plain>>>(), value);
        } else {
            *this = FormatArgument(FormattedText(value));
        }
    }

    // Which of the following holds the value.
    Type GetType() const { return m_type; }
    // Of an integer: whether the 64 bits below are to be read with a sign.
    bool IsSigned() const { return m_isSigned; }
    // What is printed without a size letter.
    int Bits() const { return m_bits; } // of an integer, at least 32
    // By its sign to 64 bits; for a pointer, its address. 0 for a real.
    std::int64_t Integer() const { return m_type == Type::real ? 0 : m_integer; }
    // 0 for everything that is no real.
    long double Real() const
    {
        long double real = 0;
        if (m_type == Type::real) std::memcpy(&real, m_real, sizeof real);
        return real;
    }
    // Of a text or an address; null for numbers. What it points at is the caller's and must stay for the
    // call.
    const void* Pointer() const
    {
        return m_type < Type::pointer ? nullptr
                                      : reinterpret_cast<const void*>(static_cast<std::intptr_t>(m_integer));
    }

private:
    template <class T>
    // Widened to 64 bits by its own sign; Bits remembers how many it had. Small integers become int on the
    // way, as in a call.
    void SetInteger(T value)
    {
        m_type = Type::integer;
        m_isSigned = std::is_signed_v<T> || sizeof(T) < sizeof(int); // what is smaller becomes an int
        m_bits = sizeof(T) > sizeof(int) ? 64 : 32;
        m_integer = static_cast<std::int64_t>(value);
    }
    // Keeps the address; nothing is read through it.
    void SetPointer(Type type, const volatile void* pointer)
    {
        m_type = type;
        m_integer = reinterpret_cast<std::intptr_t>(pointer);
    }
    template <class T>
    // What a pointer to T stands for.
    static constexpr Type TypeOfText()
    {
        if constexpr (std::is_same_v<T, WCHAR> || std::is_same_v<T, unsigned short>) return Type::wide;
        if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>)
            return sizeof(T) == 1 ? Type::narrow : Type::pointer;
        return Type::pointer;
    }

    Type m_type = Type::none; // which member of the union counts
    bool m_isSigned = false;
    unsigned char m_bits = 32;
    union {
        std::int64_t m_integer = 0;            // also a pointer's address
        std::byte m_real[sizeof(long double)]; // of Type::real alone; as bytes, for a union with a long
                                               // double makes the compiler remark on its calls
    };
};

// In the order of the call; the objects live until its end. What the Format members hand on to the writer of
// texts.
using FormatArguments = std::span<const FormatArgument>;

template <Formattable... Args>
// The arguments of a call, in order; no allocation.
std::array<FormatArgument, sizeof...(Args)> listArguments(const Args&... args)
{
    return {FormatArgument(args)...};
}

} // namespace corekit::detail
