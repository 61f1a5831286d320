// How a serial line is set.
#pragma once

#include "corekit/resources/dialogs/Items.h"

namespace corekit::detail::dialogs {
// clang-format off

inline constexpr int serialPortChoice = 1006, serialRateChoice = 1007, serialBits5 = 1008, serialBits8 = 1011,
                     serialParityNone = 1012, serialParitySpace = 1016, serialFlowNone = 1017, serialFlowSoftware = 1019,
                     serialStop1 = 1025, serialStop2 = 1027;

inline constexpr UINT portsPicture = 4001; // a program's own, in the box that stands for setting ports up by hand

inline constexpr DialogItem serialPortItems[] = {
    box("Serial Port", {7, 7, 116, 34}),
    choice(serialPortChoice, {15, 20, 100, 120}, CBS_DROPDOWN),
    box("Baud Rate", {129, 7, 116, 34}),
    choice(serialRateChoice, {137, 20, 100, 120}),
    box("Bits Per Byte", {7, 47, 238, 28}),
    radio(serialBits5, "5", {15, 59, 40, 11}, group),
    radio(1009, "6", {60, 59, 40, 11}),
    radio(1010, "7", {105, 59, 40, 11}),
    radio(serialBits8, "8", {150, 59, 40, 11}),
    box("Parity", {7, 81, 238, 28}),
    radio(serialParityNone, "&None", {15, 93, 42, 11}, group),
    radio(1013, "&Odd", {60, 93, 42, 11}),
    radio(1014, "&Even", {105, 93, 42, 11}),
    radio(1015, "&Mark", {150, 93, 42, 11}),
    radio(serialParitySpace, "&Space", {195, 93, 46, 11}),
    box("Stop Bits", {7, 115, 238, 28}),
    radio(serialStop1, "1", {15, 127, 40, 11}, group),
    radio(1026, "1.5", {60, 127, 40, 11}),
    radio(serialStop2, "2", {105, 127, 40, 11}),
    box("Flow Control", {7, 149, 238, 28}),
    radio(serialFlowNone, "None", {15, 161, 60, 11}, group),
    radio(1018, "&Hardware", {80, 161, 60, 11}),
    radio(serialFlowSoftware, "&Software", {150, 161, 60, 11}),
};
inline constexpr DialogTemplate serialPort = {4004, "Serial Settings", 252, 200, page, serialPortItems};

// clang-format on
} // namespace corekit::detail::dialogs
