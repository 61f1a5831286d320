// The codes in which the character tables give a general type and a bidirectional type. Their numbers are
// part of the table layout and never change. A code point without a row has -1 for both.
#pragma once

namespace corekit {

namespace general {
enum Code : signed char {
    Mn,        // non-spacing and enclosing marks
    Mc,        // combining spacing mark
    Nd,        // decimal digit
    No,        // other number, letter numbers among them
    Zs,        // space
    Zl,        // line separator
    Zp,        // paragraph separator
    Cc,        // control and format character
    Cp,        // ends of the private-use surrogates
    Cs,        // ends of the other surrogates and of the private use area
    Lu,        // letters: upper case,
    Ll,        // lower case,
    Lt,        // title case, together with the symbols that are made of two cases,
    Lm,        // modifier,
    Lo,        // and other
    Pd,        // punctuation: dash,
    Ps,        // opening,
    Pe,        // closing,
    Po,        // and other, connectors among them
    Sm,        // symbols: mathematical,
    Sc,        // currency,
    So,        // and other, modifier symbols among them
    NoRow = -1 // a code point that the tables do not have
};
} // namespace general

namespace bidi {
enum Code : signed char {
    L,         // strong left
    R,         // strong right, Hebrew and Arabic alike
    EN,        // European number
    ES,        // its separator
    ET,        // its terminator
    AN,        // Arabic number
    CS,        // separator of both kinds of number
    B,         // line and paragraph separator
    S,         // segment separator; no row has it
    WS,        // white space
    ON,        // other neutral, controls and tab among them
    NoRow = -1 // a code point that the tables do not have
};
} // namespace bidi

} // namespace corekit
