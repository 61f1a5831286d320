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
#pragma once

#include "corekit/platform/Types.h"

#include <array>
#include <cstdint>
#include <span>
#include <type_traits>

namespace corekit::detail {

// A class takes part in formats by a friend FormattedText(const Class&) that gives its characters.
template <class T>
concept HasFormattedText = requires(const T& object)
{
    FormattedText(object);
};

template <class T>
concept Formattable = std::is_arithmetic_v<T> || std::is_enum_v<T> || std::is_pointer_v<std::decay_t<T>> ||
    std::is_null_pointer_v<T> || HasFormattedText<T>;

class FormatArgument {
public:
    enum class Type : unsigned char { none, integer, real, pointer, narrow, wide };

    FormatArgument() = default;
    template <Formattable T>
    explicit FormatArgument(const T& value)
    {
        using Plain = std::decay_t<T>;
        if constexpr (std::is_enum_v<Plain>) {
            SetInteger(static_cast<std::underlying_type_t<Plain>>(value));
        } else if constexpr (std::is_integral_v<Plain>) {
            SetInteger(value);
        } else if constexpr (std::is_floating_point_v<Plain>) {
            m_type = Type::real;
            m_real = value;
        } else if constexpr (std::is_null_pointer_v<Plain>) {
            SetPointer(Type::pointer, nullptr);
        } else if constexpr (std::is_pointer_v<Plain>) {
            SetPointer(TypeOfText<std::remove_cv_t<std::remove_pointer_t<Plain>>>(), value);
        } else {
            *this = FormatArgument(FormattedText(value));
        }
    }

    Type GetType() const { return m_type; }
    bool IsSigned() const { return m_isSigned; }
    int Bits() const { return m_bits; } // of an integer, at least 32
    // By its sign to 64 bits; for a pointer, its address.
    std::int64_t Integer() const { return m_type == Type::real ? 0 : m_integer; }
    long double Real() const { return m_type == Type::real ? m_real : 0; }
    const void* Pointer() const
    {
        return m_type < Type::pointer ? nullptr
                                      : reinterpret_cast<const void*>(static_cast<std::intptr_t>(m_integer));
    }

private:
    template <class T>
    void SetInteger(T value)
    {
        m_type = Type::integer;
        m_isSigned = std::is_signed_v<T> || sizeof(T) < sizeof(int); // what is smaller becomes an int
        m_bits = sizeof(T) > sizeof(int) ? 64 : 32;
        m_integer = static_cast<std::int64_t>(value);
    }
    void SetPointer(Type type, const volatile void* pointer)
    {
        m_type = type;
        m_integer = reinterpret_cast<std::intptr_t>(pointer);
    }
    template <class T>
    static constexpr Type TypeOfText()
    {
        if constexpr (std::is_same_v<T, WCHAR> || std::is_same_v<T, unsigned short>) return Type::wide;
        if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>)
            return sizeof(T) == 1 ? Type::narrow : Type::pointer;
        return Type::pointer;
    }

    Type m_type = Type::none;
    bool m_isSigned = false;
    unsigned char m_bits = 32;
    union {
        std::int64_t m_integer = 0; // also a pointer's address
        long double m_real;
    };
};

using FormatArguments = std::span<const FormatArgument>;

template <Formattable... Args>
std::array<FormatArgument, sizeof...(Args)> ListArguments(const Args&... args)
{
    return {FormatArgument(args)...};
}

} // namespace corekit::detail
