// A frame's pixels with a context to draw into them. Owns both; user-interface thread.
#pragma once

#include "corekit/platform/Types.h"

#include <cstdint>
#include <span>

namespace prompter {

class FrameBuffer {
public:
    FrameBuffer() = default;
    ~FrameBuffer() { Free(); }
    FrameBuffer(const FrameBuffer&) = delete;
    FrameBuffer& operator=(const FrameBuffer&) = delete;

    // False, and no pixels, for a size that cannot be had. The same size changes nothing.
    bool Resize(SIZE size);
    SIZE Size() const { return m_size; }
    HDC Context() const { return m_dc; } // null without pixels
    // 0xAARRGGBB, rows from the top without gaps.
    std::span<std::uint32_t> Pixels() const;

private:
    void Free();

    SIZE m_size{0, 0};
    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    std::uint32_t* m_pixels = nullptr;
};

} // namespace prompter
