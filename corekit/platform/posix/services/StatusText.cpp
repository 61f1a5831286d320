#include "corekit/platform/posix/services/StatusText.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace corekit::detail {
namespace {
// By number of the state, from 1.
constexpr std::string_view words[] = {"Stopped",    "Starting", "Stopping", "Running",
                                      "Continuing", "Pausing",  "Paused"};
constexpr std::string_view stepMark = ", step ";
} // namespace

std::string statusText(const SERVICE_STATUS& status)
{
    const DWORD row = status.dwCurrentState - SERVICE_STOPPED;
    std::string text =
        row < std::size(words) ? std::string(words[row]) : "State " + std::to_string(status.dwCurrentState);
    if (status.dwCheckPoint > 0) text.append(stepMark).append(std::to_string(status.dwCheckPoint));
    return text;
}

ToldStatus statusIn(std::string_view text)
{
    ToldStatus told;
    const std::size_t mark = std::min(text.find(stepMark), text.size());
    if (const auto* const word = std::ranges::find(words, text.substr(0, mark)); word != std::end(words))
        told.state = static_cast<DWORD>(word - words) + SERVICE_STOPPED;
    const std::string_view number = text.substr(std::min(mark + stepMark.size(), text.size()));
    std::from_chars(number.data(), number.data() + number.size(), told.checkPoint);
    return told;
}

} // namespace corekit::detail
