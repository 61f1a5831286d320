// Any bytes as lines of remote control, as the bytes of a hand controller, and as colours that are typed.
#include "model/ColourNames.h"
#include "model/HandController.h"
#include "model/Remote.h"

#include <algorithm>
#include <cstdlib>

using namespace prompter;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        const RemoteCommand command = ParseRemoteLine(line);
        if (const auto* const wrong = std::get_if<RemoteError>(&command))
            if (!wrong->answer.starts_with("error") || wrong->answer.size() > 200 ||
                std::ranges::any_of(wrong->answer, [](char c) { return c < ' ' || c > '~'; }))
                std::abort();
        if (const auto colour = ParseColour(line); colour && ParseColour(ColourText(*colour)) != colour)
            std::abort();
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    ControllerParser parser;
    for (std::size_t i = 0; i < size; ++i)
        if (const auto event = parser.Take(data[i]); event && (event->value < -64 || event->value > 127))
            std::abort();
    return 0;
}
