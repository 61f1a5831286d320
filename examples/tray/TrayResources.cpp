#include "TrayResources.h"

#include <corekit/framework/Module.h>

#include <string>

namespace {

constexpr ResourceString texts[] = {{textStarting, "The service is starting"},
                                    {textStopping, "The service is stopping"}};

// A disc in that colour.
std::string Disc(const char* colour)
{
    constexpr int size = 32, centre = 31, radius = 28; // of half pixels
    std::string xpm = std::string("/* XPM */\n\"32 32 2 1\",\n\"  c None\",\n\"o c ") + colour + "\",\n";
    for (int y = 0; y < size; ++y) {
        xpm += '"';
        for (int x = 0; x < size; ++x) {
            const int dx = 2 * x - centre, dy = 2 * y - centre;
            xpm += dx * dx + dy * dy <= radius * radius ? 'o' : ' ';
        }
        xpm += y + 1 < size ? "\",\n" : "\"\n";
    }
    return xpm;
}

} // namespace

void UseTrayResources()
{
    static const std::string green = Disc("#2E9E4F"), grey = Disc("#8A8A8A"), amber = Disc("#E0A020");
    static const auto bytes = [](const std::string& text) { return std::as_bytes(std::span(text)); };
    static const BinaryResource pictures[] = {
        {"#3", "#201", bytes(green)}, {"#3", "#202", bytes(grey)}, {"#3", "#203", bytes(amber)}};
    AfxSetResourceStrings(texts);
    AfxSetResources(pictures);
}
