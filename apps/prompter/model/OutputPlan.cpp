#include "model/OutputPlan.h"

#include <algorithm>

namespace prompter {
namespace {

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

OutputSettings& SettingsOf(std::vector<OutputSettings>& wanted, const std::string& display)
{
    const auto found = std::ranges::find(wanted, display, &OutputSettings::display);
    return found == wanted.end() ? wanted.emplace_back(OutputSettings{display, {}, false}) : *found;
}

} // namespace prompter
