// Moving bytes through a descriptor with one call or as many as it takes.
//
// A reader that is gone raises no signal: a write fails with 109, on a socket with 10054.
#pragma once

#include "corekit/platform/Types.h"

#include <cstdint>

namespace corekit::detail {

enum class Direction : std::uint8_t { read, write };

// What kind of descriptor bytes pass through.
enum class Flow : std::uint8_t {
    placed, // a file with places
    stream, // a pipe or a terminal
    line,   // a serial line: no signal comes from one
    socket
};

struct Transfer {
    DWORD moved = 0;
    DWORD error = 0;

    friend bool operator==(const Transfer&, const Transfer&) = default;
};

// The bytes of a transfer that are still to move. A write does not change them.
struct Buffer {
    char* bytes;
    DWORD count;
};

// Moves all from or to the place, fewer at the end of the file. A write that cannot place all fails with 29.
Transfer moveAt(int fd, Direction direction, Buffer buffer, std::int64_t place);

// The same for a transfer with an OVERLAPPED: a read that finds the file's end instead of bytes fails
// with 38.
Transfer moveOverlapped(int fd, Direction direction, Buffer buffer, std::int64_t place);
// Whether so many bytes fit from there on.
bool isPlace(std::int64_t place, DWORD count);

// Reads what there is next, or writes all; waits for the other side where it must.
Transfer moveNext(int fd, Flow flow, Direction direction, Buffer buffer);

// As much as goes at once; a read of no bytes is done when there is something to read. False, with nothing
// moved, where the other side has to do its part first. A stream must be in non-blocking mode.
bool moveNow(int fd, Flow flow, Direction direction, Buffer buffer, Transfer& transfer);

} // namespace corekit::detail
