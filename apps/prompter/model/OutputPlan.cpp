#include "model/OutputPlan.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace prompter {
namespace {

constexpr SIZE frame{16, 48}; // what the window manager may put around a window

const OutputSettings* Find(std::span<const OutputSettings> wanted, const std::string& display)
{
    const auto found = std::ranges::find(wanted, display, &OutputSettings::display);
    return found == wanted.end() ? nullptr : &*found;
}

bool Holds(const RECT& r, POINT p)
{
    return p.x >= r.left && p.x < r.right && p.y >= r.top && p.y < r.bottom;
}

} // namespace

std::vector<PlannedOutput> PlanOutputs(std::span<const OutputSettings> wanted, std::span<const Display> there)
{
    std::vector<PlannedOutput> plan;
    for (const Display& display : there)
        if (const OutputSettings* const own = Find(wanted, display.name); own && own->isOn)
            plan.push_back({display.name, display.place, own->form});
    return plan;
}

std::vector<PlannedOutput> PlanStandIn(std::span<const OutputSettings> wanted, std::span<const Display> there,
                                       POINT desk)
{
    if (there.empty()) return {};
    const auto other = std::ranges::find_if(there, [&](const Display& d) { return !Holds(d.place, desk); });
    const Display& display = other == there.end() ? there.front() : *other;
    const OutputSettings* const own = Find(wanted, display.name);
    return {{display.name, display.place, own ? own->form : FrameForm{}}};
}

RECT PlaceInSight(const RECT& wanted, std::span<const Display> there)
{
    if (there.empty()) return wanted;
    const POINT middle{std::midpoint(wanted.left, wanted.right), std::midpoint(wanted.top, wanted.bottom)};
    const auto under = std::ranges::find_if(there, [&](const Display& d) { return Holds(d.place, middle); });
    const RECT& display = under == there.end() ? there.front().place : under->place;
    const auto fit = [](LONG& low, LONG& high, LONG from, LONG to) {
        const auto length =
            static_cast<LONG>(std::min<std::int64_t>(std::int64_t{high} - low, std::int64_t{to} - from));
        low = std::clamp(low, from, to - length);
        high = low + length;
    };
    RECT place = wanted;
    fit(place.left, place.right, display.left, display.right - frame.cx);
    fit(place.top, place.bottom, display.top, display.bottom - frame.cy);
    return place;
}

OutputSettings& SettingsOf(std::vector<OutputSettings>& wanted, const std::string& display)
{
    const auto found = std::ranges::find(wanted, display, &OutputSettings::display);
    return found == wanted.end() ? wanted.emplace_back(OutputSettings{display, {}, false}) : *found;
}

} // namespace prompter
