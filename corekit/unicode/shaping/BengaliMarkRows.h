// Rows of the Bengali step for a consonant and a lower member that is typed as one mark: ya-phala 09FE,
// ra-phala 09FD, ba-phala 09D3.
//
// The mark stands right behind the letter, whose filler is dropped. Ra-phala is E1AB below wide letters and
// E1AA below the others, ba-phala E1A6 below a stem and E1A1 where a filler was; a letter with a half form
// takes that and hangs the mark on it (ma, na, sa, ssa), and where the font has the pair in one piece, it
// stands for both. Behind a ra-phala the signs u and uu are E180 and E117.
#pragma once

#include "corekit/unicode/shaping/BengaliRow.h"

namespace corekit::detail {

// clang-format off
inline constexpr BengaliRow bengaliMarkRows[] = {
    {"0995 09FE", 2, "E14B E1A8"},                               {"0996 09FE", 2, "E14C E1A8"},
    {"0997 09FE", 2, "E14D E1A8"},                               {"0998 09FE", 2, "E14E E1A8"},
    {"099A 09FE", 2, "E150 E1A8"},                               {"099B 09FE", 2, "E151 E1A8"},
    {"099C 09FE", 2, "E152 E1A8"},                               {"099D 09FE", 2, "E153 E1A8"},
    {"099F 09FE", 2, "E155 E1A8"},                               {"09A1 09FE", 2, "E157 E1A8"},
    {"09A2 09FE", 2, "E158 E1A8"},                               {"09A3 09FE", 2, "E159 E1A8"},
    {"09A4 09FE", 2, "E15A E1A8"},                               {"09A5 09FE", 2, "E15F E1A8"},
    {"09A6 09FE", 2, "E160 E1A8"},                               {"09A7 09FE", 2, "E161 E1A8"},
    {"09A8 09FE", 2, "E162 E1A8"},                               {"09AA 09FE", 2, "E163 E1A8"},
    {"09AB 09FE", 2, "E164 E1A8"},                               {"09AC 09FE", 2, "E165 E1A8"},
    {"09AD 09FE", 2, "E166 E1A8"},                               {"09AE 09FE", 2, "E167 E1A8"},
    {"09B0 09FE", 2, "E169 E1A8"},                               {"09B2 09FE", 2, "E16A E1A8"},
    {"09B6 09FE", 2, "E16B E1A8"},                               {"09B7 09FE", 2, "E16C E1A8"},
    {"09B8 09FE", 2, "E16D E1A8"},                               {"09B9 09FE", 2, "E16E E1A8"},
    {"0980 09FE", 2, "E1B6 E1A8"},                               {"0984 09FE", 2, "E1CE E1A8"},
    {"09B1 09FE", 2, "E1C1 E1A8"},                               {"0980 09D3", 2, "E1B6 E1A1"},
    {"0995 09FD", 2, "E1B5"},                                    {"0996 09FD", 2, "E14C E1AA"},
    {"0997 09FD", 2, "E14D E1D6"},                               {"0998 09FD", 2, "E1E7"},
    {"099A 09FD", 2, "E150 E1AA"},                               {"099B 09FD", 2, "E151 E1AB"},
    {"099C 09FD", 2, "E152 E1AA"},                               {"099F 09FD", 2, "E1A3"},
    {"09A1 09FD", 2, "E1C2"},                                    {"09A2 09FD", 2, "E158 E1AB"},
    {"09A4 09FD", 2, "E1CE"},                                    {"09A5 09FD", 2, "E15F E1AA"},
    {"09A6 09FD", 2, "E1B4"},                                    {"09A7 09FD", 2, "E161 E1AA"},
    {"09A8 09FD", 2, "E162 E1AA"},                               {"09AA 09FD", 2, "E10C"},
    {"09AB 09FD", 2, "E1BA"},                                    {"09AC 09FD", 2, "E19E"},
    {"09AD 09FD", 2, "E1E5"},                                    {"09AE 09FD", 2, "E167 E1AA"},
    {"09B6 09FD", 2, "E1B9"},                                    {"09B7 09FD", 2, "E16C E1AA"},
    {"09B8 09FD", 2, "E1AF E104"},                               {"09B9 09FD", 2, "E1EB"},
    {"0997 09FD 09C1", 3, "E14D E1D6 E180"},
    {"09A4 09FD 09C1", 3, "E1CE E180"},
    {"09A6 09FD 09C1", 3, "E1B4 E180"},                          {"09A6 09FD 09C2", 3, "E1B4 E117"},
    {"09A7 09FD 09C1", 3, "E161 E1AA E180"},                     {"09A7 09FD 09C2", 3, "E161 E1AA E117"},
    {"09AC 09FD 09C1", 3, "E19E E180"},
    {"09AD 09FD 09C1", 3, "E1E5 E180"},                          {"09AD 09FD 09C2", 3, "E1E5 E117"},
    {"09B6 09FD 09C1", 3, "E1B9 E180"},                          {"09B6 09FD 09C2", 3, "E1B9 E117"},
    {"0995 09D3", 2, "E14B E1A1"},                               {"0996 09D3", 2, "E14C E1A6"},
    {"0997 09D3", 2, "E14D E1A6"},                               {"099A 09D3", 2, "E150 E1A1"},
    {"099C 09D3", 2, "E152 E1A6"},                               {"099F 09D3", 2, "E155 E1A6"},
    {"09A1 09D3", 2, "E157 E1A1"},                               {"09A3 09D3", 2, "E159 E1A6"},
    {"09A4 09D3", 2, "E15A E1A1"},                               {"09A5 09D3", 2, "E15F E1A6"},
    {"09A6 09D3", 2, "E1D8"},                                    {"09A7 09D3", 2, "E161 E1A1"},
    {"09A8 09D3", 2, "E103 E15E"},                               {"09AC 09D3", 2, "E165 E1A1"},
    {"09AE 09D3", 2, "E1A4 E15E"},                               {"09B2 09D3", 2, "E16A E1A6"},
    {"09B6 09D3", 2, "E16B E1A6"},                               {"09B7 09D3", 2, "E1AE E165"},
    {"09B8 09D3", 2, "E1AF E165"},                               {"09B9 09D3", 2, "E16E E1A1"},
};
// clang-format on

} // namespace corekit::detail
