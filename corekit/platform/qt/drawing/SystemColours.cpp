#include "corekit/platform/SystemColours.h"

#include "corekit/platform/qt/drawing/StockObjects.h"
#include "corekit/platform/Toolkit.h"

#include <array>
#include <QApplication>
#include <QPalette>

using namespace corekit::detail;

namespace {

struct SystemColour {
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
    COLORREF withoutToolkit;
};

constexpr auto active = QPalette::Active, inactive = QPalette::Inactive, disabled = QPalette::Disabled;

constexpr COLORREF grey(BYTE v) { return RGB(v, v, v); }

constexpr SystemColour colours[COLOR_LAST + 1] = {
    {active, QPalette::Mid, grey(0xC8)},                 // COLOR_SCROLLBAR
    {active, QPalette::Dark, grey(0x60)},                // COLOR_BACKGROUND
    {active, QPalette::Highlight, RGB(0, 0, 128)},       // COLOR_ACTIVECAPTION
    {active, QPalette::Dark, grey(0x80)},                // COLOR_INACTIVECAPTION
    {active, QPalette::Window, grey(0xF0)},              // COLOR_MENU
    {active, QPalette::Base, grey(0xFF)},                // COLOR_WINDOW
    {active, QPalette::Shadow, grey(0x64)},              // COLOR_WINDOWFRAME
    {active, QPalette::WindowText, grey(0)},             // COLOR_MENUTEXT
    {active, QPalette::Text, grey(0)},                   // COLOR_WINDOWTEXT
    {active, QPalette::HighlightedText, grey(0xFF)},     // COLOR_CAPTIONTEXT
    {active, QPalette::Window, grey(0xF0)},              // COLOR_ACTIVEBORDER
    {active, QPalette::Window, grey(0xF0)},              // COLOR_INACTIVEBORDER
    {active, QPalette::Dark, grey(0xA0)},                // COLOR_APPWORKSPACE
    {active, QPalette::Highlight, RGB(0, 0, 128)},       // COLOR_HIGHLIGHT
    {active, QPalette::HighlightedText, grey(0xFF)},     // COLOR_HIGHLIGHTTEXT
    {active, QPalette::Button, grey(0xF0)},              // COLOR_BTNFACE
    {active, QPalette::Dark, grey(0xA0)},                // COLOR_BTNSHADOW
    {disabled, QPalette::Text, grey(0x80)},              // COLOR_GRAYTEXT
    {active, QPalette::ButtonText, grey(0)},             // COLOR_BTNTEXT
    {inactive, QPalette::WindowText, grey(0)},           // COLOR_INACTIVECAPTIONTEXT
    {active, QPalette::Light, grey(0xFF)},               // COLOR_BTNHIGHLIGHT
    {active, QPalette::Shadow, grey(0x64)},              // COLOR_3DDKSHADOW
    {active, QPalette::Midlight, grey(0xE3)},            // COLOR_3DLIGHT
    {active, QPalette::ToolTipText, grey(0)},            // COLOR_INFOTEXT
    {active, QPalette::ToolTipBase, RGB(255, 255, 220)}, // COLOR_INFOBK
    {active, QPalette::Button, grey(0xF0)},              // 25 has no name
    {active, QPalette::Link, RGB(0, 0, 255)},            // COLOR_HOTLIGHT
    {active, QPalette::Highlight, RGB(0, 0, 128)},       // COLOR_GRADIENTACTIVECAPTION
    {active, QPalette::Dark, grey(0x80)},                // COLOR_GRADIENTINACTIVECAPTION
    {active, QPalette::Highlight, RGB(0, 0, 128)},       // COLOR_MENUHILIGHT
    {active, QPalette::Window, grey(0xF0)},              // COLOR_MENUBAR
};

bool hasColour(int index) { return index >= 0 && index <= COLOR_LAST; }

} // namespace

DWORD GetSysColor(int index)
{
    if (!hasColour(index)) return 0;
    const SystemColour& colour = colours[index];
    if (!ToolkitIsRunning()) return colour.withoutToolkit;
    const QRgb rgb = QApplication::palette().color(colour.group, colour.role).rgb();
    return RGB(static_cast<BYTE>(qRed(rgb)), static_cast<BYTE>(qGreen(rgb)), static_cast<BYTE>(qBlue(rgb)));
}

HBRUSH GetSysColorBrush(int index)
{
    // A brush that the desktop has left behind stays: somebody may have it selected.
    static std::array<std::shared_ptr<Brush>, COLOR_LAST + 1> brushes;
    if (!hasColour(index)) return nullptr;
    std::shared_ptr<Brush>& brush = brushes[static_cast<std::size_t>(index)];
    const COLORREF colour = GetSysColor(index);
    if (!brush || brush->colour != colour) {
        brush = std::make_shared<Brush>(BS_SOLID, colour);
        keepForEver(brush);
    }
    return static_cast<HBRUSH>(brush->handle);
}
