// A frame as a display wants it: mirrored for a glass in front of a camera, rotated for a display on its
// side.
#pragma once

#include <cstdint>
#include <span>

namespace prompter {

enum class Turn { none, quarter, half, threeQuarters }; // clockwise

struct FrameForm {
    bool mirrorLeftRight = false, mirrorTopBottom = false; // of the frame, before it is turned
    Turn turn = Turn::none;

    bool IsPlain() const { return !mirrorLeftRight && !mirrorTopBottom && turn == Turn::none; }
    friend bool operator==(const FrameForm&, const FrameForm&) = default;
    bool SwapsSides() const { return turn == Turn::quarter || turn == Turn::threeQuarters; }
};

// Pixels in rows from the top, without gaps. `from` and `to` have the same number of pixels and do not
// overlap; the result is `height` wide and `width` high where the form swaps the sides.
void TransformFrame(std::span<const std::uint32_t> from, int width, int height, const FrameForm& form,
                    std::span<std::uint32_t> to);

} // namespace prompter
