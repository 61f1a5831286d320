// The keyboard extension of libxcb, whose header names a member by a word of this language.
#pragma once
#pragma GCC system_header // no warnings of what follows

#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
