#include "ButtonPictures.h"

#include "Commands.h"

#include <cmath>
#include <cstring>

namespace {

// Whether the point of the unit square belongs to the sign.
using Sign = bool (*)(double x, double y);
struct Picture {
    Sign sign;
    DWORD colour; // 0xRRGGBB
};

bool Page(double x, double y) { return x > 0.25 && x < 0.75 && y > 0.1 && y < 0.9 && x + 0.3 - y < 0.9; }
bool Folder(double x, double y)
{
    return (x > 0.1 && x < 0.9 && y > 0.35 && y < 0.8) || (x > 0.1 && x < 0.45 && y > 0.22 && y < 0.4);
}
bool Disk(double x, double y)
{
    const bool frame = x > 0.15 && x < 0.85 && y > 0.15 && y < 0.85;
    return frame && !(x > 0.33 && x < 0.67 && y > 0.55) && !(x > 0.33 && x < 0.67 && y < 0.35);
}
bool Play(double x, double y) { return x > 0.25 && std::abs(y - 0.5) < (0.85 - x) * 0.65; }
bool Stop(double x, double y) { return x > 0.24 && x < 0.76 && y > 0.24 && y < 0.76; }
bool Faster(double x, double y)
{
    return (x < 0.5 && std::abs(y - 0.5) < (0.52 - x) * 0.9 && x > 0.1) ||
           (x > 0.48 && std::abs(y - 0.5) < (0.92 - x) * 0.9);
}
bool Slower(double x, double y) { return Faster(1 - x, y); }
bool Mark(double x, double y)
{
    return x > 0.3 && x < 0.7 && y > 0.1 && y < 0.9 - std::abs(0.2 - std::abs(x - 0.5));
}
bool Cells(double x, double y) { return std::fmod(x, 0.45) > 0.1 && std::fmod(y, 0.45) > 0.1; }
bool Rows(double x, double y) { return x > 0.12 && x < 0.88 && std::fmod(y, 0.25) > 0.12; }
bool Columns(double x, double y) { return Rows(x, y) && std::abs(x - 0.5) > 0.06; }

constexpr Picture pictures[pictureCount] = {{Page, 0x5288CC},   {Folder, 0xC4A000}, {Disk, 0x5C7FB8},
                                            {Play, 0x4E9A06},   {Stop, 0xD03030},   {Faster, 0x80837C},
                                            {Slower, 0x80837C}, {Mark, 0xCE5C00},   {Cells, 0xA078A8},
                                            {Rows, 0xA078A8},   {Columns, 0xA078A8}};
constexpr DWORD nothing = 0xC0C0C0;

} // namespace

std::vector<std::byte> ButtonStrip(int width, int height)
{
    constexpr int header = 40;
    const int stripWidth = width * pictureCount;
    std::vector<std::byte> dib(static_cast<std::size_t>(header + 4 * stripWidth * height));
    const auto put = [&dib](int at, DWORD value) {
        std::memcpy(&dib[static_cast<std::size_t>(at)], &value, 4);
    };
    put(0, header);
    put(4, static_cast<DWORD>(stripWidth));
    put(8, static_cast<DWORD>(height));
    put(12, 1 | 32 << 16);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < stripWidth; ++x) {
            const Picture& picture = pictures[x / width];
            const bool isSet = picture.sign((x % width + 0.5) / width, (height - y - 0.5) / height);
            put(header + 4 * (y * stripWidth + x), isSet ? picture.colour : nothing);
        }
    }
    return dib;
}
