#include "model/FrameTransform.h"

#include <algorithm>
#include <cstddef>

namespace prompter {
namespace {

// Where the frame's first pixel goes, and how far a step to the right or down moves.
struct Walk {
    std::ptrdiff_t start, right, down;
};

Walk WalkOf(std::ptrdiff_t width, std::ptrdiff_t height, const FrameForm& form)
{
    Walk walk{};
    switch (form.turn) {
    case Turn::none:
        walk = {0, 1, width};
        break;
    case Turn::quarter:
        walk = {height - 1, height, -1};
        break;
    case Turn::half:
        walk = {width * height - 1, -1, -width};
        break;
    case Turn::threeQuarters:
        walk = {(width - 1) * height, -height, 1};
        break;
    }
    if (form.mirrorLeftRight) {
        walk.start += (width - 1) * walk.right;
        walk.right = -walk.right;
    }
    if (form.mirrorTopBottom) {
        walk.start += (height - 1) * walk.down;
        walk.down = -walk.down;
    }
    return walk;
}

constexpr int tile = 32; // pixels a side: rows of both frames stay in the cache while a tile is turned

} // namespace

void TransformFrame(std::span<const std::uint32_t> from, int width, int height, const FrameForm& form,
                    std::span<std::uint32_t> to)
{
    const auto pixels =
        static_cast<std::size_t>(std::max(width, 0)) * static_cast<std::size_t>(std::max(height, 0));
    if (pixels == 0 || from.size() < pixels || to.size() < pixels) return;
    const Walk walk = WalkOf(width, height, form);
    for (int top = 0; top < height; top += tile)
        for (int left = 0; left < width; left += tile)
            for (int y = top; y < std::min(top + tile, height); ++y) {
                const std::uint32_t* in = from.data() + static_cast<std::ptrdiff_t>(y) * width + left;
                std::uint32_t* out = to.data() + walk.start + y * walk.down + left * walk.right;
                for (int x = left; x < std::min(left + tile, width); ++x, out += walk.right) *out = *in++;
            }
}

} // namespace prompter
