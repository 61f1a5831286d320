#include "view/Displays.h"

#include "corekit/graphics/DirectDraw.h"
#include "corekit/platform/Monitors.h"

#include <algorithm>

namespace prompter {
namespace {

BOOL AddPlace(HMONITOR monitor, HDC, RECT*, LPARAM data)
{
    MONITORINFOEXA info{};
    info.cbSize = sizeof info;
    if (!GetMonitorInfoA(monitor, &info)) return TRUE;
    reinterpret_cast<std::vector<Display>*>(data)->push_back({info.szDevice, "", info.rcMonitor});
    return TRUE;
}

} // namespace

std::vector<Display> ListDisplays()
{
    std::vector<Display> displays;
    EnumDisplayMonitors(nullptr, nullptr, &AddPlace, reinterpret_cast<LPARAM>(&displays));
    CDXDisplayArray described;
    dxutil_EnumDisplays(described, true, true);
    for (int i = 0; i < described.GetSize(); ++i) {
        const std::string name = static_cast<const char*>(described[i].m_name);
        const auto display = std::ranges::find_if(
            displays, [&](const Display& d) { return d.description.empty() && name.starts_with(d.name); });
        if (display != displays.end())
            display->description = static_cast<const char*>(described[i].m_description);
    }
    // One without a name is known by its number.
    for (std::size_t i = 0; i < displays.size(); ++i)
        if (displays[i].name.empty()) displays[i].name = "Display " + std::to_string(i + 1);
    return displays;
}

} // namespace prompter
